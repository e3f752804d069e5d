// What leaves the catalogue: for a folder, or for another catalogue.

#include "catalogue/mektp.h"
#include "platform/desktop/data_control.h"
#include "platform/desktop/list_box.h"
#include "soak/fingerprints.h"
#include "soak/scenes.h"
#include "soak/stored.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const QString toFolder = u"optMb(0)"_s, toTable = u"optMb(1)"_s;
const QString copied = u"图册《"_s;  ///< The beginning of the closing message.

}  // namespace

/// Returns their fingerprints in the order in which they will go.
QStringList Scenes::choosePictures(const QString& album, int count) {
    settings(transferPage);
    settings_.chooseInCombo(u"cboBm"_s, album);
    auto& records = settings_.get<DataControl>(u"datBj"_s);
    QStringList pictures;
    for (const int row : chosenRows(count, records.total())) {
        settings_.clickRow(row);
        pictures << pictureOf(records.Recordset());
    }
    return pictures;
}

void Scenes::chooseFolder(const QString& folder) const {
    settings_.option(toFolder);
    settings_.browse(folder);
    settings_.click(u"cmdMq"_s);
}

void Scenes::exportPictures() {
    settings(transferPage);
    settings_.chooseInCombo(u"cboBm"_s, otherAlbum);
    settings_.click(u"cmdQb"_s);
    const QString folder = newFolder();
    const QString place = QFileInfo(folder).fileName();
    report_({u"create"_s, place});
    for (const QString& picture : picturesOf(otherAlbum)) report_({u"add"_s, place, picture});
    chooseFolder(folder);
    run(u"cmdWj"_s, u"选定的图片已全部转换成文件"_s);
    for (const QString& picture : picturesOf(otherAlbum)) report_({u"added"_s, place, picture});
}

/// The next picture is asked for, or none, when the one in hand is stored.
void Scenes::giveName() const {
    constexpr int patience = 60000;
    const auto question = [&] {
        const auto& label = settings_.get<QLabel>(u"lblWm"_s);
        return label.isVisible() ? label.toolTip() : QString();
    };
    const QString before = question();
    settings_.click(u"cmdWm(0)"_s);
    if (!QTest::qWaitFor([&] { return question() != before; }, patience)) throw Error(u"no answer to a name"_s);
}

void Scenes::movePicturesToFiles() {
    const QStringList pictures = choosePictures(workAlbum, 3);
    const QString folder = newFolder();
    const QString place = QFileInfo(folder).fileName();
    report_({u"create"_s, place});
    chooseFolder(folder);
    settings_.click(u"cmdYd"_s);
    for (qsizetype i = 0; i < pictures.size(); ++i) {
        report_({u"turn"_s, workAlbum, pictures[i], place, pictures[i]});
        settings_.type(u"txtWm"_s, u"移%1"_s.arg(i));
        work([&] { giveName(); });
        report_({u"turned"_s, workAlbum, pictures[i], place, pictures[i]});
    }
}

/// Another catalogue, with an album in it chosen as the target: it can be any that bears a name known here. Returns its
/// place.
QString Scenes::chooseCatalogue() {
    const QString folder = newFolder();
    const QString prefix = QFileInfo(folder).fileName() + u':';
    makeOtherCatalogue(QDir(folder).filePath(u"目标.mdb"_s));
    for (const QString& table : {u"tc02"_s, workAlbum, u"tcan"_s}) report_({u"create"_s, prefix + table});
    settings_.option(toTable);
    settings_.browse(folder);
    settings_.clickLine(u"fil1"_s, u"目标.mdb"_s);
    settings_.clickLine(u"lstSb"_s, workAlbum);
    settings_.click({u"cmdQx"_s, u"cmdLr"_s});  // all columns by their place, and the panel closes
    return prefix + workAlbum;
}

void Scenes::copyToCatalogue() {
    const QStringList pictures = choosePictures(otherAlbum, 5);
    const QString target = chooseCatalogue();
    for (const QString& picture : pictures) report_({u"add"_s, target, picture});
    run(u"cmdFz"_s, copied);
    for (const QString& picture : pictures) report_({u"added"_s, target, picture});
}

void Scenes::moveToCatalogue() {
    const QStringList pictures = choosePictures(otherAlbum, 4);
    const QString target = chooseCatalogue();
    for (const QString& picture : pictures) report_({u"turn"_s, otherAlbum, picture, target, picture});
    run(u"cmdYd"_s, copied);
    for (const QString& picture : pictures) report_({u"turned"_s, otherAlbum, picture, target, picture});
}
