#pragma once

class QApplication;

namespace theme {
struct Colours;
}

/// The looks of the program: style, font, colours and the details that all windows share.
void applyLook(QApplication& application);

/// Lets all windows wear other colours. Colours that a control has set for itself stay.
void wearColours(const theme::Colours& colours);
