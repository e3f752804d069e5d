#include "platform/desktop/data_control.h"

#include "../../support/rows.h"
#include "desktop.h"
#include "platform/desktop/grid.h"

using namespace Qt::Literals::StringLiterals;

namespace {

void fillPictures(const Database& database, const QString& table, int count) {
    Transaction transaction(database);
    Recordset records = database.OpenRecordset(table);
    for (int i = 1; i <= count; ++i) {
        addRow(records, {{u"序号"_s, i},
                         {u"编号"_s, u"a%1"_s.arg(i)},
                         {u"大小"_s, 1.5F},
                         {u"日期"_s, QDateTime(QDate(2003, 10, 1), QTime(0, 0)).addSecs(i)}});
    }
    transaction.commit();
}

QStringList rowTexts(const Grid& grid, int row) {
    QStringList result;
    for (int column = 0; column < grid.model()->columnCount(); ++column) result.append(grid.cellText(row, column));
    return result;
}

class TestDataControl : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init() {
        folder_ = std::make_unique<QTemporaryDir>();
        path_ = folder_->filePath(u"lunq.mdb"_s);
        database_ = createDatabase(path_);
        database_.Execute(
            u"CREATE TABLE tc01 ([序号] LONG,[编号] TEXT(10),[大小] SINGLE,[日期] DATETIME,[图片] LONGBINARY,[备注] TEXT(50))"_s);
        fillPictures(database_, u"tc01"_s, 5);
        data_ = std::make_unique<DataControl>();
        data_->setDatabaseName(path_);
        data_->setRecordSource(u"SELECT * FROM tc01 ORDER BY [序号]"_s);
        data_->useDatabase(database_);
        grid_ = std::make_unique<Grid>();
        grid_->bind(data_.get());
        data_->Refresh();
    }

    void cleanup() {
        answerBoxesWith({});
        grid_.reset();
        data_.reset();
        database_ = {};
        folder_.reset();
    }

    void buttonsMoveThroughTheRecords() {
        QSignalSpy repositioned(data_.get(), &DataControl::repositioned);
        const auto press = [&](const QString& name) { found<QToolButton>(data_.get(), name)->click(); };
        const QList<std::pair<QString, int>> steps{{u"previous"_s, 0}, {u"next"_s, 1}, {u"next"_s, 2},
                                                   {u"previous"_s, 1}, {u"last"_s, 4}, {u"next"_s, 4},
                                                   {u"last"_s, 4},     {u"first"_s, 0}};
        for (const auto& [button, row] : steps) {
            press(button);
            QCOMPARE(data_->Recordset().row(), row);
        }
        QCOMPARE(repositioned.size(), 5);  // the ends do not move
        QVERIFY(data_->findFirst(u"序号 = 3"_s));
        QCOMPARE(data_->Recordset().row(), 2);
        QVERIFY(!data_->findFirst(u"序号 = 77"_s));
        QCOMPARE(data_->Recordset().row(), 2);
        QCOMPARE(repositioned.size(), 6);
    }

    void buttonsLeadFromADeletedRecordToItsNeighbours() {
        for (const auto& [deleted, button, number] : {std::tuple{2, u"next"_s, 4},
                                                      {2, u"previous"_s, 2},
                                                      {4, u"next"_s, 4},
                                                      {0, u"previous"_s, 2},
                                                      {2, u"first"_s, 1},
                                                      {2, u"last"_s, 5}}) {
            database_.Execute(u"DELETE FROM tc01"_s);
            fillPictures(database_, u"tc01"_s, 5);
            data_->Refresh();
            data_->moveToRow(deleted);
            data_->Recordset().Delete();
            QSignalSpy repositioned(data_.get(), &DataControl::repositioned);
            found<QToolButton>(data_.get(), button)->click();
            QCOMPARE(data_->Recordset().Fields(u"序号"_s).Value().toInteger(), number);
            QCOMPARE(repositioned.size(), 1);
        }
    }

    void refreshTellsWhatItFound() {
        QSignalSpy refreshed(data_.get(), &DataControl::refreshed);
        QSignalSpy repositioned(data_.get(), &DataControl::repositioned);
        data_->Refresh();
        QCOMPARE(refreshed.size(), 1);
        QCOMPARE(repositioned.size(), 1);
        QCOMPARE(data_->total(), 5);
        data_->setRecordSource(u"SELECT * FROM tc01 WHERE [序号] > 50"_s);
        data_->Refresh();
        QCOMPARE(data_->total(), 0);
        found<QToolButton>(data_.get(), u"next"_s)->click();
        QCOMPARE(repositioned.size(), 1);
    }

    void failedRefreshLeavesNoRecords() {
        QCOMPARE(grid_->model()->rowCount(), 5);
        QSignalSpy refreshed(data_.get(), &DataControl::refreshed);
        data_->setRecordSource(u"SELECT * FROM tc99"_s);
        QVERIFY_THROWS_EXCEPTION(Error, data_->Refresh());
        QVERIFY(data_->Recordset().isNothing());
        QCOMPARE(data_->total(), 0);
        QCOMPARE(refreshed.size(), 1);
        QCOMPARE(grid_->model()->rowCount(), 0);
        data_->setDatabaseName(folder_->filePath(u"none.mdb"_s));
        QVERIFY_THROWS_EXCEPTION(Error, data_->Refresh());
        data_->setDatabaseName(path_);
        data_->setRecordSource(u"tc01"_s);
        data_->Refresh();
        QCOMPARE(grid_->model()->rowCount(), 5);
    }

    void anotherFileIsOpenedByItsPath() {
        const QString other = folder_->filePath(u"other.mdb"_s);
        {
            const Database made = createDatabase(other);
            made.Execute(u"CREATE TABLE tc01 ([序号] LONG)"_s);
        }
        data_->setDatabaseName(other);
        data_->setRecordSource(u"tc01"_s);
        data_->Refresh();
        QCOMPARE(data_->Recordset().FieldCount(), 1);
        data_->setDatabaseName(path_);
        data_->Refresh();
        QCOMPARE(data_->total(), 5);
    }

    void gridShowsTheRecordsWithoutTheirPictures() {
        grid_->setFormatString(u"^序号|>编号|<  大  小  |日期"_s);
        data_->Refresh();
        QCOMPARE(grid_->FormatString(), u"^序号|>编号|<  大  小  |日期"_s);
        QCOMPARE(rowTexts(*grid_, 1), (QStringList{u"2"_s, u"a2"_s, u"1.5"_s, u"2003-10-01 00:00:02"_s, QString()}));
        QStringList headings;
        for (int i = 0; i < 5; ++i) headings.append(grid_->model()->headerData(i, Qt::Horizontal).toString());
        QCOMPARE(headings, (QStringList{u"序号"_s, u"编号"_s, u"大  小"_s, u"日期"_s, u"备注"_s}));
        const auto alignment = [&](int column) {
            return grid_->model()->index(0, column).data(Qt::TextAlignmentRole).value<Qt::Alignment>() &
                   Qt::AlignHorizontal_Mask;
        };
        QCOMPARE(alignment(0), Qt::AlignHCenter);
        QCOMPARE(alignment(1), Qt::AlignRight);
        QCOMPARE(alignment(2), Qt::AlignLeft);
        QVERIFY(grid_->columnWidth(2) > grid_->columnWidth(0));
        QVERIFY(grid_->columnWidth(3) > grid_->fontMetrics().horizontalAdvance(u"2003-10-01 00:00:02"_s));
        grid_->Clear();
        QCOMPARE(grid_->model()->rowCount(), 0);
        QCOMPARE(grid_->model()->columnCount(), 4);  // its headings stay
        data_->Refresh();
        QCOMPARE(grid_->model()->rowCount(), 5);
    }

    void columnsFillTheGridAndFollowItsWidth() {
        grid_->resize(900, 200);
        grid_->setFormatString(u"序号|编号"_s);
        data_->Refresh();
        QVERIFY(isShown(*grid_));
        QCOMPARE(grid_->horizontalHeader()->length(), grid_->viewport()->width());
        grid_->resize(700, 200);
        QTRY_COMPARE(grid_->horizontalHeader()->length(), grid_->viewport()->width());
        grid_->resize(120, 200);
        QTRY_VERIFY(grid_->horizontalHeader()->length() > grid_->viewport()->width());
    }

    void gridFollowsTheCurrentRecordSilently() {
        grid_->resize(500, 200);
        data_->Refresh();
        QVERIFY(isShown(*grid_));
        QSignalSpy clicked(grid_.get(), &Grid::rowClicked);
        QCOMPARE(grid_->currentIndex().row(), 0);
        data_->moveToRow(3);
        QCOMPARE(grid_->currentIndex().row(), 3);
        QCOMPARE(grid_->selectionModel()->selectedRows().size(), 1);
        QCOMPARE(clicked.size(), 0);
    }

    // The expected signals in their order, each with the row: s is selected, c clicked, a activated.
    void theHighlightedRowIsTheCurrentRecord() {
        grid_->resize(500, 200);
        QVERIFY(isShown(*grid_));
        grid_->setFocus();
        QString arrived;
        connect(grid_.get(), &Grid::rowSelected, this, [&](int row) {
            QCOMPARE(data_->Recordset().row(), row);
            arrived += u's' + QString::number(row);
        });
        connect(grid_.get(), &Grid::rowClicked, this, [&](int row) { arrived += u'c' + QString::number(row); });
        connect(grid_.get(), &Grid::rowActivated, this, [&](int row) { arrived += u'a' + QString::number(row); });
        const auto place = [&](int row) { return grid_->visualRect(grid_->model()->index(row, 1)).center(); };
        const auto key = [&](Qt::Key pressed, Qt::KeyboardModifiers with = {}) {
            return [this, pressed, with] { QTest::keyClick(grid_.get(), pressed, with); };
        };
        const auto click = [&](int row, Qt::KeyboardModifiers with = {}) {
            return [&, row, with] { QTest::mouseClick(grid_->viewport(), Qt::LeftButton, with, place(row)); };
        };
        const std::tuple<QString, std::function<void()>, int, QString> steps[] = {
            {u"Down"_s, key(Qt::Key_Down), 1, u"s1"_s},
            {u"End"_s, key(Qt::Key_End), 4, u"s4"_s},
            {u"Down at the end"_s, key(Qt::Key_Down), 4, u""_s},
            {u"Home"_s, key(Qt::Key_Home), 0, u"s0"_s},
            {u"Ctrl+End"_s, key(Qt::Key_End, Qt::ControlModifier), 4, u"s4"_s},
            {u"Page up"_s, key(Qt::Key_PageUp), 0, u"s0"_s},
            {u"Page down"_s, key(Qt::Key_PageDown), 4, u"s4"_s},
            {u"Right"_s, key(Qt::Key_Right), 4, u""_s},
            {u"Shift+Up"_s, key(Qt::Key_Up, Qt::ShiftModifier), 3, u"s3"_s},
            {u"letters typed"_s, key(Qt::Key_A), 4, u"s4"_s},
            {u"Enter"_s, key(Qt::Key_Return), 4, u"s4c4a4"_s},
            {u"click"_s, click(3), 3, u"s3c3"_s},
            {u"the same row"_s, click(3), 3, u"s3c3"_s},
            {u"Ctrl+click on it"_s, click(3, Qt::ControlModifier), 3, u"s3c3"_s},
            {u"Ctrl+Space"_s, key(Qt::Key_Space, Qt::ControlModifier), 3, u""_s},
            {u"double click"_s,
             [&] {
                 QTest::mouseClick(grid_->viewport(), Qt::LeftButton, {}, place(2));
                 QTest::mouseDClick(grid_->viewport(), Qt::LeftButton, {}, place(2));
                 QTest::mouseRelease(grid_->viewport(), Qt::LeftButton, {}, place(2));
             },
             2, u"s2c2a2"_s},
            {u"drawn over the rows"_s,
             [&] {
                 QTest::mousePress(grid_->viewport(), Qt::LeftButton, {}, place(2));
                 QTest::mouseMove(grid_->viewport(), place(3));
                 QMouseEvent drawn(QEvent::MouseMove, place(4), grid_->viewport()->mapToGlobal(place(4)), Qt::NoButton,
                                   Qt::LeftButton, {});
                 QApplication::sendEvent(grid_->viewport(), &drawn);
                 QTest::mouseRelease(grid_->viewport(), Qt::LeftButton, {}, place(4));
             },
             4, u"s4"_s},
            {u"beside the rows"_s,
             [&] {
                 QTest::mouseClick(grid_->viewport(), Qt::LeftButton, {}, {10, grid_->viewport()->height() - 5});
             },
             4, u""_s},
            {u"screen reader"_s, [&] { grid_->setCurrentIndex(grid_->model()->index(1, 0)); }, 1, u"s1"_s},
        };
        for (const auto& [name, step, row, signals_] : steps) {
            arrived.clear();
            step();
            QVERIFY2(arrived == signals_, qPrintable(name + u": "_s + arrived));
            QCOMPARE(data_->Recordset().row(), row);
            const QModelIndexList marked = grid_->selectionModel()->selectedRows();
            QVERIFY2(marked.size() == 1 && marked.first().row() == row, qPrintable(name));
        }
    }

    // When `mayGoTo` refuses, the record stays marked and no signal is sent.
    void recordThatIsNotLeft() {
        grid_->resize(500, 200);
        QVERIFY(isShown(*grid_));
        data_->moveToRow(2);
        QList<int> asked;
        data_->mayGoTo = [&](int row) {
            asked << row;
            return false;
        };
        QSignalSpy selected(grid_.get(), &Grid::rowSelected);
        QSignalSpy clicked(grid_.get(), &Grid::rowClicked);
        QTest::keyClick(grid_.get(), Qt::Key_Down);
        QTest::mouseClick(grid_->viewport(), Qt::LeftButton, {},
                          grid_->visualRect(grid_->model()->index(0, 1)).center());
        data_->findChild<QToolButton*>(u"last"_s)->click();
        QCOMPARE(asked, (QList<int>{3, 0, 4}));
        QVERIFY(selected.isEmpty() && clicked.isEmpty());
        QCOMPARE(data_->Recordset().row(), 2);
        QCOMPARE(grid_->selectionModel()->selectedRows().value(0).row(), 2);
        data_->mayGoTo = {};
        QTest::keyClick(grid_.get(), Qt::Key_Down);
        QCOMPARE(data_->Recordset().row(), 3);
    }

    // After a deletion no record is the current one, and the way of Tab chooses none.
    void focusChoosesNoRecord() {
        grid_->resize(500, 200);
        QVERIFY(isShown(*grid_));
        grid_->clearFocus();
        data_->Refresh();
        data_->Recordset().Delete();
        grid_->setCurrentIndex({});
        QSignalSpy selected(grid_.get(), &Grid::rowSelected);
        grid_->setFocus(Qt::TabFocusReason);
        QTest::keyClick(grid_.get(), Qt::Key_Shift);
        QVERIFY(selected.isEmpty());
        QCOMPARE(data_->Recordset().row(), -1);
    }

    void changedRecordIsShownAfterTheNextMove() {
        QCOMPARE(grid_->cellText(0, 1), u"a1"_s);
        Recordset& records = data_->Recordset();
        changeRow(records, {{u"编号"_s, u"z"_s}});
        data_->moveToRow(1);
        QCOMPARE(grid_->cellText(0, 1), u"z"_s);
    }

    void whatOthersHaveChanged() {
        database_.Execute(u"DELETE FROM tc01 WHERE [序号] = 4"_s);
        QCOMPARE(rowTexts(*grid_, 3), (QStringList{{}, {}, {}, {}, {}}));
        QCOMPARE(grid_->cellText(4, 0), u"5"_s);

        QProcess shell;
        shell.start(u"sqlite3"_s, {path_, u"UPDATE tc01 SET 编号 = x'FFD8' WHERE 序号 = 2"_s});
        QVERIFY(shell.waitForFinished() && shell.exitCode() == 0);
        data_->Refresh();
        QCOMPARE(grid_->cellText(1, 1), u"二进制数据"_s);
        QCOMPARE(grid_->cellText(2, 1), u"a3"_s);
    }

    void gridOutlivesItsDataControl() {
        data_.reset();
        QVERIFY(rowTexts(*grid_, 0).first().isEmpty());
    }

    void largeAlbumIsReadOnlyWhereItIsSeen() {
        constexpr int many = 100'000;
        database_.Execute(u"DELETE FROM tc01"_s);
        fillPictures(database_, u"tc01"_s, many);
        grid_->resize(500, 300);
        data_->Refresh();
        QVERIFY(isShown(*grid_));
        grid_->grab();
        QCOMPARE(grid_->model()->rowCount(), many);

        // What was not seen yet shows what is stored when it is seen; what was seen is kept.
        Recordset behind = database_.OpenRecordset(u"SELECT * FROM tc01 WHERE [序号] = 1 OR [序号] = 50000"_s);
        for (; !behind.Eof(); behind.MoveNext()) changeRow(behind, {{u"编号"_s, u"new"_s}});
        QCOMPARE(grid_->cellText(49'999, 1), u"new"_s);
        QCOMPARE(grid_->cellText(0, 1), u"a1"_s);

        data_->moveToRow(many - 1);
        QVERIFY(grid_->visualRect(grid_->currentIndex()).intersects(grid_->viewport()->rect()));
        QCOMPARE(grid_->cellText(many - 1, 0), QString::number(many));
    }

  private:
    std::unique_ptr<QTemporaryDir> folder_;
    QString path_;
    Database database_;
    std::unique_ptr<DataControl> data_;
    std::unique_ptr<Grid> grid_;
};

const Registered<TestDataControl> registered;

}  // namespace

#include "data_control_test.moc"
