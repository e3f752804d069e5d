#pragma once

class QApplication;

/// The looks of the program: style, font, colours and the details that all windows share.
void applyLook(QApplication& application);
