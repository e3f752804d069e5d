// What comes into the catalogue and what goes on within it.

#include "catalogue/mektp.h"
#include "platform/desktop/data_control.h"
#include "soak/fingerprints.h"
#include "soak/ledger.h"
#include "soak/scenes.h"
#include "soak/stored.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const QString entered = u"图片录入完成！"_s;
const QString replacing = u"optCz(0)"_s, appending = u"optCz(1)"_s;

}  // namespace

QByteArray Scenes::fileIn(const QString& folder, const QString& name) const {
    QFile file(QDir(folder).filePath(name));
    if (!file.open(QIODevice::ReadOnly)) throw Error(u"no file "_s + file.fileName());
    return file.readAll();
}

void Scenes::chooseFiles(const QString& album, const QString& way, const QString& folder) const {
    settings_.chooseInCombo(u"cboBm"_s, album);
    settings_.option(u"optYl(0)"_s);
    settings_.option(way);
    settings_.browse(folder);
    settings_.click(u"cmdQx"_s);
}

/// What is stored is sure when the closing message counts it.
void Scenes::enterFiles(const QStringList& pictures) {
    for (const QString& picture : pictures) report_({u"add"_s, workAlbum, picture});
    run(u"cmdLr"_s, entered);
    for (const QString& picture : pictures)
        if (picture != Ledger::unknown) report_({u"added"_s, workAlbum, picture});
}

void Scenes::appendFiles() {
    constexpr int count = 6;
    const QString folder = newFolder();
    samples_.writeFiles(folder, 1, count);
    settings(intakePage);
    chooseFiles(workAlbum, appending, folder);
    QStringList pictures;
    for (int i = 1; i <= count; ++i) {
        const QString bitmap = u"%1.bmp"_s.arg(i), jpeg = u"%1.jpg"_s.arg(i);
        const bool isBitmap = QFile::exists(QDir(folder).filePath(bitmap));
        pictures << (isBitmap ? Ledger::unknown : fingerprintOf(asStored(fileIn(folder, jpeg))));
    }
    enterFiles(pictures);
    report_({u"met"_s, workAlbum, fingerprintOf(asStored(fileIn(folder, u"2.bmp"_s)))});
}

/// Esc ends the run somewhere. What the closing message counts is in, and nothing else.
void Scenes::stopIntake() {
    constexpr int count = 6;
    const QString folder = newFolder();
    QStringList pictures;
    for (int i = 1; i <= count; ++i) {
        const QString name = u"%1.jpg"_s.arg(i);
        samples_.writeLarge(QDir(folder).filePath(name));
        pictures << fingerprintOf(asStored(fileIn(folder, name)));
    }
    settings(intakePage);
    chooseFiles(otherAlbum, appending, folder);
    auto& progress = settings_.get<QProgressBar>(u"prg2"_s);
    const auto stop = QObject::connect(&progress, &QProgressBar::valueChanged, &progress, [&](int percent) {
        if (percent > 0) QTest::keyClick(&settings_.window(), Qt::Key_Escape);
    });
    for (const QString& picture : pictures) report_({u"add"_s, otherAlbum, picture});
    run(u"cmdLr"_s, entered);
    QObject::disconnect(stop);
    const int stored = QString(said_.back()).remove(QRegularExpression(u"[^0-9]"_s)).toInt();
    for (int i = 0; i < count; ++i) report_({i < stored ? u"added"_s : u"dropped"_s, otherAlbum, pictures[i]});
    if (const Hand list(u"frmBg"_s); list.isThere()) list.click(u"cmdBg"_s);
}

void Scenes::replaceFiles() {
    constexpr int count = 4;
    const QString folder = newFolder();
    Recordset rows = mekTp::catalogue.OpenRecordset(u"SELECT * FROM %1 ORDER BY [序号]"_s.arg(otherAlbum));
    QList<std::array<QString, 2>> replaced;
    QList<int> numbers;
    for (const int row : chosenRows(count, rows.rowCount())) {
        rows.moveToRow(row);
        const int number = rows.Fields(u"序号"_s).Value().toInteger();
        if (numbers.isEmpty())
            samples_.writeLarge(QDir(folder).filePath(u"%1.jpg"_s.arg(number)));
        else
            samples_.writeFiles(folder, number, 1);
        numbers << number;
        replaced << std::array{pictureOf(rows), fingerprintOf(asStored(fileIn(folder, u"%1.jpg"_s.arg(number))))};
    }
    settings(intakePage);
    chooseFiles(otherAlbum, replacing, folder);
    for (const auto& [before, after] : replaced) report_({u"turn"_s, otherAlbum, before, otherAlbum, after});
    run(u"cmdLr"_s, entered);
    for (const auto& [before, after] : replaced) report_({u"turned"_s, otherAlbum, before, otherAlbum, after});
}

/// Another catalogue with four pictures in the album tc05. Returns them.
QStringList Scenes::makeSource(const QString& path) {
    makeOtherCatalogue(path);
    QStringList pictures;
    Recordset rows = OpenDatabase(path).OpenRecordset(u"tc05"_s);
    for (int number = 1; number <= 4; ++number) {
        const QByteArray bytes = number == 2 ? samples_.large() : samples_.small();
        rows.AddNew();
        rows.Fields(u"序号"_s).SetValue(number);
        rows.Fields(u"规格"_s).SetValue(number == 2 ? largeSpec : smallSpec);
        rows.Fields(u"图片"_s).SetValue(bytes);
        rows.Update();
        pictures << fingerprintOf(bytes);
    }
    return pictures;
}

void Scenes::takeInCatalogue() {
    const QString folder = newFolder();
    const QString source = QDir(folder).filePath(u"别 的.mdb"_s);
    const QStringList pictures = makeSource(source);
    settings(intakePage);
    settings_.chooseInCombo(u"cboBm"_s, otherAlbum);
    settings_.option(u"optYl(1)"_s);
    settings_.option(appending);
    settings_.browse(folder);
    settings_.clickLine(u"fil1"_s, u"别 的.mdb"_s);
    settings_.clickLine(u"lstSb"_s, u"tc05"_s);
    settings_.click({u"cmdQx"_s, u"cmdQx"_s});  // all columns by their place, then all records
    for (const QString& picture : pictures) report_({u"add"_s, otherAlbum, picture});
    run(u"cmdLr"_s, entered);
    for (const QString& picture : pictures) report_({u"added"_s, otherAlbum, picture});
}

/// By date and by number in turn, after somebody has changed some dates.
void Scenes::renumber() {
    {
        Recordset rows = mekTp::catalogue.OpenRecordset(longAlbum);
        Transaction together(mekTp::catalogue);
        for (const int row : chosenRows(20, rows.rowCount())) {
            rows.moveToRow(row);
            rows.Edit();
            rows.Fields(u"日期"_s).SetValue(QDateTime(QDate(2004, 1, 1).addDays(random_.bounded(4000)), QTime(12, 0)));
            rows.Update();
        }
        together.commit();
    }
    settings(editingPage);
    settings_.chooseInCombo(u"cboBm"_s, longAlbum);
    settings_.option(u"optP1(1)"_s);
    const Numbering numbering = numberingBy(longAlbum, u"日期"_s);
    report_({u"renumber"_s, longAlbum, numbering.before, numbering.after});
    run(u"cmdJh"_s, u"重新设置序号已经完成"_s);
    report_({u"renumbered"_s, longAlbum, numbering.after});
}

void Scenes::editRecords() {
    settings(editingPage);
    settings_.chooseInCombo(u"cboBm"_s, workAlbum);
    const int total = settings_.get<DataControl>(u"datBj"_s).total();
    if (total == 0) return;
    settings_.clickRow(int(random_.bounded(total)));
    settings_.click(u"cmdQd"_s);
    settings_.type(u"txtBh"_s, u"1v"_s);
    settings_.type(u"txtB2"_s, u"备注%1"_s.arg(random_.generate()));
    work([&] { settings_.click(u"cmdQd"_s); });
}

void Scenes::deletePictures() {
    settings(editingPage);
    for (const QString& album : {workAlbum, otherAlbum}) {
        settings_.chooseInCombo(u"cboBm"_s, album);
        auto& records = settings_.get<DataControl>(u"datBj"_s);
        for (int i = 0; i < 4 && records.total() > 12; ++i) {
            settings_.clickRow(int(random_.bounded(records.total())));
            deleteRecord(album);
        }
    }
}

/// An album with three pictures; returns its table.
QString Scenes::fillNewAlbum() {
    const QString table = u"tc4%1"_s.arg(QChar(u'a' + random_.bounded(26)));
    const QString folder = newFolder();
    samples_.writeFiles(folder, 1, 2);
    samples_.writeLarge(QDir(folder).filePath(u"3.jpg"_s));
    settings(setupPage);
    if (!mekTp::catalogue.TableDefs().contains(table)) {
        settings_.click(u"cmdJl"_s);
        settings_.type(u"txtBa"_s, table);
        settings_.type(u"txtBb"_s, u"临时"_s + table);
        report_({u"create"_s, table});
        work([&] { settings_.click(u"cmdJl"_s); });
        report_({u"created"_s, table});
        settings_.openPage(intakePage);
        chooseFiles(table, appending, folder);
        for (int i = 1; i <= 3; ++i)
            report_({u"add"_s, table, fingerprintOf(asStored(fileIn(folder, u"%1.jpg"_s.arg(i))))});
        clickAndWait(u"cmdLr"_s, entered);
        for (int i = 1; i <= 3; ++i)
            report_({u"added"_s, table, fingerprintOf(asStored(fileIn(folder, u"%1.jpg"_s.arg(i))))});
        settings_.openPage(setupPage);
    }
    return table;
}

void Scenes::addAndDeleteButton() {
    const QString code = QChar(u'A' + random_.bounded(10));
    file_ = QDir(newFolder()).filePath(u"1.jpg"_s);
    samples_.writeFiles(QFileInfo(file_).path(), 1, 1);
    settings(setupPage);
    Recordset owner = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcan WHERE 编号 = '%1'"_s.arg(code));
    if (owner.Eof()) {
        settings_.click(u"cmdQu"_s);
        settings_.type(u"txtB1"_s, code);
        settings_.type(u"txtM1"_s, u"钮"_s + code);
        settings_.type(u"txtC1"_s, workAlbum);
        settings_.click({u"cmdCk(4)"_s, u"cmdAz"_s});
        const QString picture = fingerprintOf(asStored(fileIn(QFileInfo(file_).path(), u"1.jpg"_s)));
        report_({u"add"_s, u"tcan"_s, picture});
        work([&] {
            settings_.click(u"cmdAq"_s);
            if (settings_.get<QPushButton>(u"cmdQu"_s).text() == u"保 存") settings_.click(u"cmdQu"_s);
        });
        report_({u"added"_s, u"tcan"_s, picture});
        return;
    }
    settings_.clickRowOf(1, code);
    const QString picture = pictureOf(owner);
    report_({u"turn"_s, u"tcan"_s, picture, Ledger::bin, picture});
    work([&] { settings_.click(u"cmdSn"_s); });
    report_({u"turned"_s, u"tcan"_s, picture, Ledger::bin, picture});
}
