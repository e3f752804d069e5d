#pragma once

#include "catalogue/bin_restoring.h"

#include <QString>

/// What is said about the bin, without widgets.

/// What was taken away last: "已删除 12 张". `only`: the one kind of all of it, if it is one.
QString removedText(const BinTotals& totals, std::optional<BinKind> only);
QString restoredText(const Restored& restored);
/// All that is in the bin, in a line.
QString contentsText(const BinTotals& totals);

/// How an item came into the bin, and from where.
QString kindText(const BinItem& item);
QString originText(const BinItem& item);
/// Codes and remark of a record.
QString detailText(const BinItem& item);
/// Empty for an item without a picture.
QString bytesText(qint64 bytes);

/// What there is: "12 张图片、1 个图册".
QString partsText(const BinTotals& totals);
QString removalQuestion(const BinTotals& totals);
