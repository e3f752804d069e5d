#pragma once

#include "catalogue/runs/repetition_count.h"

#include <QString>
#include <optional>

class QWidget;

/// What an album may have already of the pictures that are to be appended to it.
struct SkipOffer {
    QString album;
    RepetitionCount::Things things;
};

/// The question before pictures are taken in. With an offer it has the check box `chkTg`: whether those that the album
/// has already are left out. The caption tells how many these are, and how many only the run can compare, as soon as
/// they are counted. Gives the choice, which is remembered; nothing when the answer is 取消.
std::optional<bool> askIntake(QWidget* parent, const QString& question, const std::optional<SkipOffer>& offer);
