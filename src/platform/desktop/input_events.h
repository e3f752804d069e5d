#pragma once

#include <QEvent>

/// Whether an event comes from a person's hand: mouse, wheel, keys, touch, pen, or something dragged in.
bool isInput(QEvent::Type type);
