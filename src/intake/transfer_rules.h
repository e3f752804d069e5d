#pragma once

#include "platform/database/records/field_value.h"

#include <QString>
#include <QStringList>
#include <vector>

/// Names and texts of the page 图片转存.

/// The way in which pictures leave an album: "复制" or "移动".
QString operationText(bool move);

/// Caption of the button that chooses the whole album.
inline const QString chooseAllCaption = QStringLiteral("本像册全部选中");

QString chosenText(int count);

/// Name of the file that a picture gets by default: 编号 ("0" where there are none but blanks), 序号 and ".jpg". A sign
/// that would lead to another folder becomes "_".
QString defaultPictureName(const FieldValue& code, int number);

/// A name as the box for it completes it: it always ends in ".jpg". An empty one stays empty.
QString completedPictureName(const QString& name);

/// Why a complete name stands for no file in the chosen folder; empty when it does.
QString objectionToFileName(const QString& name);

/// `name` with ".jpg" at its end, unless its last four characters are that.
QString withJpgEnding(const QString& name);

/// The album's title as the messages name it.
QString albumNameOfLine(const QString& line);

/// What the name dialog asks for; the first time without a colon.
QString nameQuestion(const QString& album, const QString& number, bool first);

QString countLine(const QString& album, int count);
QString countLine(const QString& album, const QString& code, int count);

QString startQuestion(bool move);
QString toFilesQuestion();
QString copiedText(const QString& album, int count);
QString madeIntoFilesText(int count);

/// Heading of what a copy or move did not do; "%1" stands for the count.
QString notTransferredHeading(bool move);

/// Said when the giving of names ends before the last picture: which files were written.
QString endedEarlyText(bool move, const QStringList& files);

/// Asked when a picture could not be written to a file for no fault of its name.
QString retryQuestion(bool move, const QString& number, const QString& reason);

/// What a transfer did not do, by reason.
class NotDone {
  public:
    void add(const QString& reason, const QString& what);
    bool isEmpty() const { return groups_.empty(); }
    int count() const;
    /// `heading` has "%1" for the count; then follows a line for each reason.
    QString text(const QString& heading) const;

  private:
    struct Group {
        QString reason;
        QStringList items;
    };
    std::vector<Group> groups_;
};
