#pragma once

#include "platform/database/records/database.h"

#include <functional>

/// Adds records to an album, in one change: numbered from 1, ten minutes apart from the beginning of 2003 on, every
/// seventh with the codes "12", the others with "1". `picture` gives the bytes of each.
inline void fillAlbum(const Database& database, const QString& table, int count,
                      const std::function<QByteArray(int number)>& picture = {}) {
    using namespace Qt::Literals::StringLiterals;
    Transaction together(database);
    Recordset album = database.OpenRecordset(table);
    const QDateTime start(QDate(2003, 1, 1), QTime(0, 0));
    for (int number = 1; number <= count; ++number) {
        album.AddNew();
        album.Fields(u"序号"_s).SetValue(number);
        album.Fields(u"编号"_s).SetValue(number % 7 == 0 ? u"12"_s : u"1"_s);
        album.Fields(u"大小"_s).SetValue(u"1,234.567"_s);
        album.Fields(u"规格"_s).SetValue(u"640 * 480"_s);
        album.Fields(u"日期"_s).SetValue(start.addSecs(600LL * number));
        album.Fields(u"备注"_s).SetValue(u"图片%1"_s.arg(number));
        if (picture) album.Fields(u"图片"_s).AppendChunk(picture(number));
        album.Update();
    }
    together.commit();
}
