#pragma once

#include "catalogue/bin.h"

#include <array>

// What the files about the bin share of the layout of its table.

inline const QString binTimeFormat = QStringLiteral("yyyy-MM-dd HH:mm:ss");

/// Texts of the column `kind`, in the order of `BinKind`.
inline const std::array binKindNames{QStringLiteral("deleted"), QStringLiteral("moved"), QStringLiteral("replaced"),
                                     QStringLiteral("album"), QStringLiteral("button")};
QString binKindName(BinKind kind);

/// The columns of an album, and of a button, which the bin has by the same names; without the picture.
inline const QString binAlbumColumns = QStringLiteral("序号, 编号, 大小, 规格, 日期, 备注");
inline const QString binButtonColumns = QStringLiteral("序号, 编号, 名称, 图册");
