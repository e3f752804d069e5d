#pragma once

#include "intake_window.h"
#include "platform/desktop/placing.h"

inline const QStringList albumFields{QStringLiteral("序号"), QStringLiteral("编号"), QStringLiteral("大小"),
                                     QStringLiteral("规格"), QStringLiteral("日期"), QStringLiteral("图片"),
                                     QStringLiteral("备注")};

/// The settings window on the page 图片录入 with 数据库 as its source, and the files 源库.mdb, 另库.mdb to take from.
class DatabaseWindow : public IntakeWindow {
  public:
    DatabaseWindow() : source(createDatabase(path(QStringLiteral("源库.mdb")))) {
        createDatabase(path(QStringLiteral("另库.mdb")));
    }

    /// An album table in the source file with that many pictures, 序号 from `first`.
    void addSourceAlbum(const QString& table, int first, int count) const {
        source.Execute(createAlbumSql(table));
        for (int i = 0; i < count; ++i) addSourceRow(table, first + i);
    }
    void addSourceRow(const QString& table, int number) const {
        addRow(table, {{QStringLiteral("序号"), number},
                       {QStringLiteral("编号"), QStringLiteral("ab")},
                       {QStringLiteral("大小"), 1.5F},
                       {QStringLiteral("规格"), QStringLiteral("60 * 45")},
                       {QStringLiteral("日期"), QDateTime(QDate(1999, 5, number), QTime(8, 30))},
                       {QStringLiteral("图片"), pictureOf(number)},
                       {QStringLiteral("备注"), QStringLiteral("源%1").arg(number)}});
    }
    void addRow(const QString& table, const RowValues& values) const {
        Recordset rows = source.OpenRecordset(table);
        ::addRow(rows, values);
    }
    static QByteArray pictureOf(int number) {
        return pictureBytes({60, 45}, QColor::fromHsv(number * 37 % 360, 200, 200));
    }

    /// Album, source, way of adding (0 替换, 1 追加) and file, as a person chooses them.
    void chooseFile(const QString& album, int way) const {
        choose(QStringLiteral("cboBm"), album);
        option(QStringLiteral("optYl(1)"));
        option(QStringLiteral("optCz(%1)").arg(way));
        get<DirList>(QStringLiteral("dir1")).setPath(pictures.path());
        clickFile(QStringLiteral("源库.mdb"));
    }
    void chooseTable(const QString& album, int way, const QString& table) const {
        chooseFile(album, way);
        clickLine(QStringLiteral("lstSb"), table);
    }
    /// The mapping by position, finished.
    void mapAll(const QString& album, int way, const QString& table) const {
        chooseTable(album, way, table);
        click(QStringLiteral("cmdQx"));
    }
    /// Copies all records; gives what was said after the first message, which is the question.
    QStringList copyAll() {
        enterAll();
        return said().mid(1);
    }

    void clickLine(const QString& list, const QString& text) const {
        auto& box = get<ListBox>(list);
        const auto found = box.findItems(text, Qt::MatchExactly);
        QVERIFY2(!found.isEmpty(), qPrintable(text));
        box.scrollToItem(found.front());
        QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, box.visualItemRect(found.front()).center());
    }
    void clickRow(int row) const {
        auto& grid = get<Grid>(QStringLiteral("msgBm"));
        const QModelIndex cell = grid.model()->index(row, 0);
        grid.scrollTo(cell);
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.visualRect(cell).center());
    }
    void openPickList(int index) const {
        QTest::mouseClick(&fieldBox(index), Qt::LeftButton);
        QTRY_VERIFY(shown(QStringLiteral("lstDy")));
    }
    /// Puts a source field on line `index` of the mapping by its pick list.
    void mapField(int index, const QString& field) const {
        openPickList(index);
        clickLine(QStringLiteral("lstDy"), field);
    }
    TextBox& fieldBox(int index) const { return box(QStringLiteral("txtYb(%1)").arg(index)); }

    QStringList linesOf(const QString& list) const {
        auto& box = get<ListBox>(list);
        QStringList all;
        for (int i = 0; i < box.ListCount(); ++i) all << box.List(i);
        return all;
    }
    QStringList mapping() const {
        QStringList all;
        for (int i = 0; form->findChild<TextBox*>(QStringLiteral("txtYb(%1)").arg(i)) != nullptr; ++i)
            all << fieldBox(i).text();
        return all;
    }
    /// Where a control stands on the tab control, in pixels.
    QRect placeOf(const QString& name) const {
        const auto& control = get<QWidget>(name);
        return {control.mapTo(&tabs(), QPoint(0, 0)), control.size()};
    }

    Database source;
};
