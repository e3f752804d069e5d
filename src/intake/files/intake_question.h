#pragma once

#include <QString>
#include <QStringList>
#include <optional>

class QWidget;

/// What an album may have already of the pictures that are to be appended to it.
struct SkipOffer {
    QString album;
    QStringList files;  ///< Their paths; empty for records of a database, which are not counted before.
};

/// The question before pictures are taken in. With an offer it has the check box `chkTg`: whether those that the album
/// has already are left out. The caption tells how many of the files these are, as soon as they are counted. Gives the
/// choice, which is remembered; nothing when the answer is 取消.
std::optional<bool> askIntake(QWidget* parent, const QString& question, const std::optional<SkipOffer>& offer);
