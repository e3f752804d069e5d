#pragma once

#include <QString>
#include <functional>

class QWidget;

/// File dialogs of the program: QFileDialog in its non-native form, or what a test answers instead.

struct FileQuestion {
    QString title;
    QString filter;  ///< "BMP文件|*.bmp|JPG文件|*.jpg": name and pattern in turn.
    QString proposal;
    bool saving;
    int filterIndex = 1;    ///< Pair of `filter` that is chosen at first, from 1.
    bool mayBeNew = false;  ///< When opening: a file that does not exist can be named.
};

/// Path of the file that the user picked, empty when the dialog was cancelled. The patterns ignore case.
QString askOpenFile(QWidget* parent, const QString& title, const QString& filter, const QString& proposal = {},
                    int filterIndex = 1);
/// Path of a file, new or old, for later use. An existing file is not asked about.
QString askFilePath(QWidget* parent, const QString& title, const QString& filter, const QString& proposal = {});
/// Asks before an existing file is overwritten.
QString askSaveFile(QWidget* parent, const QString& title, const QString& filter, const QString& proposal = {});

/// Lets `answer` take the place of all file dialogs, for tests. An empty function brings them back.
void answerFileDialogsWith(std::function<QString(const FileQuestion&)> answer);
