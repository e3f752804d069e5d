// What the editor does to pictures of albums, to files and to buttons.

#include "catalogue/mektp.h"
#include "editor/work_surface.h"
#include "platform/desktop/data_control.h"
#include "platform/desktop/text_box.h"
#include "soak/fingerprints.h"
#include "soak/ledger.h"
#include "soak/scenes.h"
#include "soak/stored.h"

using namespace Qt::Literals::StringLiterals;

namespace {
const QString filesPlace = u"files"_s;
}  // namespace

void Scenes::answer(const QString& text) const {
    auto& box = editor_.get<TextBox>(u"txtCq"_s);
    box.clear();
    QTest::keyClicks(&box, text);
    QTest::keyClick(&box, Qt::Key_Return);
}

/// Some steps of the undo history, forth and back.
void Scenes::operate() {
    editor_.click(u"tlb1:sf"_s);
    answer(u".%1"_s.arg(random_.bounded(800, 999)));
    editor_.click({u"tlb1:fs"_s, u"tlb1:fc"_s, u"tlb1:cx"_s});
    editor_.click(u"tlb1:xz"_s);
    answer(u"90"_s);
}

void Scenes::openAlbumPicture(const QString& album) {
    editor_.click(u"tlb1:sk"_s);
    editor_.chooseInCombo(u"cboBm"_s, album);
    const int total = editor_.get<DataControl>(u"datBj"_s).total();
    editor_.clickRow(int(random_.bounded(total)));
    editor_.click(u"cmdQd"_s);
}

void Scenes::editAlbumPicture() {
    editor();
    openAlbumPicture(otherAlbum);
    const Recordset& record = editor_.get<DataControl>(u"datBj"_s).Recordset();
    const QString number = record.Fields(u"序号"_s).Value().textOr(), before = pictureOf(record);
    report_({u"turn"_s, otherAlbum, before, otherAlbum, Ledger::unknown});
    work([&] {
        operate();
        editor_.click(u"tlb1:bc"_s);
    });
    const Recordset stored =
        mekTp::catalogue.OpenRecordset(u"SELECT * FROM %1 WHERE 序号 = %2"_s.arg(otherAlbum, number));
    report_({u"turned"_s, otherAlbum, before, otherAlbum, pictureOf(stored)});
}

/// Saved under another name, and over the file itself.
void Scenes::editFile() {
    const QString folder = newFolder();
    const QString place = QFileInfo(folder).fileName();
    samples_.writeLarge(QDir(folder).filePath(u"1.jpg"_s));
    file_ = QDir(folder).filePath(u"1.jpg"_s);
    const QString before = fingerprintOf(fileIn(folder, u"1.jpg"_s));
    report_({u"create"_s, place});
    report_({u"added"_s, place, before});
    editor();
    editor_.click(u"tlb1:wk"_s);
    file_ = QDir(folder).filePath(u"2.jpg"_s);
    report_({u"add"_s, place, Ledger::unknown});
    report_({u"turn"_s, place, before, place, Ledger::unknown});
    work([&] {
        operate();
        editor_.click({u"tlb1:lc"_s, u"tlb1:fs"_s, u"tlb1:bc"_s});
    });
    report_({u"met"_s, place, fingerprintOf(fileIn(folder, u"2.jpg"_s))});
    report_({u"turned"_s, place, before, place, fingerprintOf(fileIn(folder, u"1.jpg"_s))});
}

void Scenes::makeButtonPicture() {
    const QString folder = newFolder();
    file_ = QDir(folder).filePath(u"1.jpg"_s);
    samples_.writeFiles(folder, 1, 1);
    editor();
    editor_.click({u"tlb1:wk"_s, u"tlb1:at"_s});
    editor_.option(u"optAn(0)"_s);
    editor_.option(u"optAn(2)"_s);
    editor_.clickRow(1 + int(random_.bounded(5)));
    const QString before = pictureOf(editor_.get<DataControl>(u"datAn"_s).Recordset());
    report_({u"turn"_s, u"tcan"_s, before, u"tcan"_s, Ledger::unknown});
    work([&] { editor_.click(u"cmdCk"_s); });
    report_({u"turned"_s, u"tcan"_s, before, u"tcan"_s, pictureOf(editor_.get<DataControl>(u"datAn"_s).Recordset())});
}

/// Albums, pages, and the windows that can be open beside the main window.
void Scenes::browse() {
    for (const QString& table : {longAlbum, otherAlbum}) {
        for (QAction* album : viewer_.get<QMenu>(u"mnuDk"_s).actions())
            if (album->text() == u"册"_s + table) album->trigger();
        work([&] { viewer_.click({u"imgAn(0)"_s, u"tlb1:xy"_s, u"tlb1:xy"_s, u"tlb1:sy"_s, u"tlb1:ty"_s}); });
        QTest::qWait(50);
    }
    viewer_.click({u"tlb1:bz"_s, u"tlb1:bz"_s});
    viewer_.trigger(u"mnuCs"_s);
    Hand(u"frmPs"_s).click(u"cmdQx"_s);
    viewer_.trigger(u"mnuGy"_s);
    Hand(u"frmGy"_s).window().close();
}
