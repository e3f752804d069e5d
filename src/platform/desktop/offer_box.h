#pragma once

#include <QString>
#include <QStringList>
#include <functional>

/// Asks as `choose` does, but without waiting: the program goes on, as with `tell`. `given` gets the place of the
/// answer. Enter and Escape give the last one. The box closes with the program, without an answer.
void offer(const QString& text, const QStringList& answers, const std::function<void(int)>& given,
           const QString& title);
