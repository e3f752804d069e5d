#pragma once

#include <QString>
#include <QStringList>
#include <optional>

class QWidget;

/// The question before pictures are taken in. Where `paths` names the files that are to be appended to the album, it
/// has the check box `chkTg`: whether those that the album has already are left out. The caption tells how many these
/// are, as soon as they are counted. Gives the choice, which is remembered; nothing when the answer is 取消.
std::optional<bool> askIntake(QWidget* parent, const QString& question, const QString& album, const QStringList& paths);
