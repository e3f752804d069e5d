#include "catalogue/mektp.h"
#include "catalogue/picture_in_hand.h"
#include "catalogue_maker/chapters.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/desktop/image_box.h"
#include "platform/desktop/text_box.h"
#include "viewer/frm_tp.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QSize windowSize(960, 720);

/// A program with nothing but the main window.
class NoOtherWindows : public Windows {
  public:
    void handOver(WindowKind, WindowKind) override {}
    void takeIn(const QString&, const PictureOffer&) override {}
    void show(WindowKind) override {}
    void unload(WindowKind) override {}
    void coloursChanged() override {}
    void tryColours(const ColourScheme&) override {}
    void showHelp(const QString&) override {}
    void endProgram() override {}
};

void setColours(const QString& scheme) {
    mekTp::openCatalogue();
    Recordset settings = mekTp::catalogue.OpenRecordset(u"tcsz"_s);
    settings.Edit();
    settings.Fields(u"颜色"_s).SetValue(scheme);
    settings.Update();
}

/// The main window with a page of the demonstration album.
QImage mainWindow() {
    NoOtherWindows windows;
    frmTp window(windows);
    window.resize(windowSize);
    window.show();
    QApplication::processEvents();
    window.findChild<QAction*>(u"mnuCd(0)"_s)->trigger();
    window.findChild<TextBox*>(u"txtLs"_s)->setText(u"3列"_s);
    QMetaObject::invokeMethod(window.findChild<ImageBox*>(u"imgAn(0)"_s), "clicked");
    QApplication::processEvents();
    return window.grab().toImage().scaled(windowSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

void keep(const QString& picture, const QString& file) {
    QFile::remove(file);
    if (!QFile::copy(picture, file)) throw Error(u"%1 cannot be written."_s.arg(file));
}

}  // namespace

void fillWindowPreviews(const Database& database, const QString& path, const QString& folder, Workshop& workshop) {
    // The window writes settings: it gets a catalogue of its own.
    const QTemporaryDir tried;
    QFile::copy(path, tried.filePath(u"lunq.mdb"_s));
    setProgramFolder(tried.path());
    for (Recordset schemes = database.OpenRecordset(u"tcys"_s); !schemes.Eof(); schemes.MoveNext()) {
        const QString number = schemes.Fields(u"序号"_s).Value().toText();
        setColours(number);
        const QString picture = workshop.jpeg(mainWindow(), 90).path;
        keep(picture, joinedPath(folder, number + u".jpg"_s));
        schemes.Edit();
        PictureInHand(picture).storeIn(schemes.Fields(u"主窗口"_s));
        schemes.Update();
    }
    mekTp::catalogue = {};
    setProgramFolder({});
}
