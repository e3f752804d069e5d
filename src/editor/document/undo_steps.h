#pragma once

#include <QImage>
#include <QSet>
#include <QString>
#include <functional>
#include <optional>

/// The steps of a session in the table `tccx`: every one a whole picture as JPEG, so taking back computes nothing. The
/// step of the load is written with the first operation: who only looks at pictures leaves nothing behind.
class UndoSteps {
  public:
    struct Step {
        int number = 0;  ///< From 1, the load.
        QString label;   ///< The hint that was on the screen.
        QString tag;     ///< Words of the operations up to it.
        QSize size;      ///< Twips.
        double parameter = 0;
        QImage picture;
        QByteArray profile = {};  ///< Of the picture's colours.
    };

    /// Another picture is loaded.
    void start(Step loaded);
    /// Stores a step, and tells whether it is stored. One that cannot be leaves nothing, and stops nobody: `takeLoss`
    /// says why.
    bool record(const Step& step);
    /// A stored step; nothing when it is none or holds no picture.
    std::optional<Step> read(int number) const;
    /// The newest step that the catalogue holds of the picture that was worked on last.
    std::optional<Step> newest() const;
    /// Throws `Error` when the catalogue refuses it.
    void remove(int number);
    /// Removes all steps from the catalogue; throws as `remove` does.
    void clear();

    /// Why a step of this picture could not be stored; empty when all were, or when it was taken already.
    QString takeLoss();

  private:
    bool store(const Step& step, const std::function<QByteArray()>& jpeg);

    std::optional<Step> loaded_;  ///< The step of the load, until it is written.
    QSet<int> lost_;              ///< Steps that could not be stored. A row of their number is an earlier picture's.
    QString loss_;
    bool isLossTaken_ = false;
};

/// A step's number as the column 编号 has it: two digits, more from step 100 on.
QString stepText(int number);

/// Removes what a session that was ended by force has left in `tccx`.
void emptyUndoSteps();
