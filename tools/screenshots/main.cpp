#include "catalogue/mektp.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/desktop/file_dialogs.h"
#include "platform/desktop/image_box.h"
#include "platform/desktop/look.h"
#include "platform/desktop/tab_control.h"
#include "platform/desktop/text_box.h"
#include "platform/desktop/tool_bar.h"
#include "start/program.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <cstdio>

using namespace Qt::Literals::StringLiterals;

// take_screenshots CATALOGUE FOLDER: pictures of all windows of the program, with the demonstration album of a fresh
// catalogue in them. QT_SCALE_FACTOR=2 takes them as a screen of twice the density shows them.
// take_screenshots --manual CATALOGUE FOLDER: the same as they are stored in the manual.

namespace {

// The manual shows its pictures half as wide.
constexpr int manualWidth = 680;
constexpr int manualQuality = 85;

class Studio {
  public:
    Studio(const QString& catalogue, const QString& folder, bool forManual) : folder_(folder), forManual_(forManual) {
        QFile::copy(catalogue, program_.filePath(u"lunq.mdb"_s));
        setProgramFolder(program_.path());
        windows_.start();
    }
    ~Studio() { setProgramFolder({}); }

    void viewer() {
        window_ = window(u"frmTp"_s);
        window_->resize(960, 720);
        take(u"cover"_s);
        find<QAction>(u"mnuCd(0)"_s)->trigger();
        find<TextBox>(u"txtLs"_s)->setText(u"3列"_s);
        click(u"imgAn(0)"_s);
        take(u"main"_s);
        QMetaObject::invokeMethod(find<ImageBox>(u"imgXs(1)"_s), "doubleClicked");
        take(u"picture"_s);
        QMetaObject::invokeMethod(find<ImageBox>(u"img0"_s), "clicked");
        press(u"rq"_s);
        take(u"date"_s);
        press(u"sj"_s);
        take(u"interval"_s);
    }

    void settings() {
        windows_.handOver(WindowKind::viewer, WindowKind::settings);
        window_ = window(u"frmSz"_s);
        auto* tabs = find<TabControl>(u"sstFz"_s);
        for (int page = 0; page < tabs->count(); ++page) {
            tabs->setCurrentIndex(page);
            take(u"settings%1"_s.arg(page + 1));
        }
        windows_.handOver(WindowKind::settings, WindowKind::viewer);
    }

    void editor(const QString& picture) {
        windows_.handOver(WindowKind::viewer, WindowKind::editor);
        window_ = window(u"frmCl"_s);
        window_->resize(960, 720);
        take(u"editor_empty"_s);
        answerFileDialogsWith([picture](const FileQuestion&) { return picture; });
        press(u"wk"_s);
        take(u"editor"_s);
        press(u"xz"_s);
        take(u"editor_rotation"_s);
        windows_.handOver(WindowKind::editor, WindowKind::viewer);
    }

    void beside(WindowKind kind, const QString& name) {
        windows_.show(kind);
        window_ = window(name);
        take(name);
    }

    /// Stores a picture of the album as a file, for the editor to open.
    QString pictureFile(int number) {
        const Recordset row = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tc00 WHERE 序号 = %1"_s.arg(number));
        QFile file(program_.filePath(u"照片.jpg"_s));
        if (!file.open(QIODevice::WriteOnly)) throw Error(file.errorString());
        file.write(row.Fields(u"图片"_s).GetChunk(0, row.Fields(u"图片"_s).FieldSize()));
        return file.fileName();
    }

  private:
    static QWidget* window(const QString& name) {
        QApplication::processEvents();
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->objectName() == name && widget->isVisible()) return widget;
        throw Error(u"no window "_s + name);
    }
    template <typename Control>
    Control* find(const QString& name) const {
        auto* control = window_->findChild<Control*>(name);
        if (control == nullptr) throw Error(u"no control "_s + name);
        return control;
    }
    void click(const QString& image) { QMetaObject::invokeMethod(find<ImageBox>(image), "clicked"); }
    void press(const QString& key) { find<ToolBar>(u"tlb1"_s)->button(key)->click(); }
    void take(const QString& name) {
        QApplication::processEvents();
        const QString file = u"%1/%2.%3"_s.arg(folder_, name, forManual_ ? u"jpg"_s : u"png"_s);
        QImage picture = window_->grab().toImage();
        picture.setDevicePixelRatio(1);
        if (forManual_) picture = picture.scaledToWidth(manualWidth, Qt::SmoothTransformation);
        if (!picture.save(file, nullptr, forManual_ ? manualQuality : -1)) throw Error(u"cannot write "_s + file);
    }

    QTemporaryDir program_;
    QString folder_;
    bool forManual_;
    Program windows_;
    QWidget* window_ = nullptr;
};

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationVersion(QString::fromLatin1(LUNQ_VERSION));
    QStringList words = QApplication::arguments();
    const bool forManual = words.removeOne(u"--manual"_s);
    if (words.size() != 3) {
        std::fputs("usage: take_screenshots [--manual] CATALOGUE FOLDER\n", stderr);
        return 1;
    }
    applyLook(application);
    try {
        Studio studio(words[1], words[2], forManual);
        studio.viewer();
        const QString picture = studio.pictureFile(6);
        studio.settings();
        studio.editor(picture);
        studio.beside(WindowKind::colours, u"frmPs"_s);
        studio.beside(WindowKind::help, u"frmBz"_s);
        studio.beside(WindowKind::about, u"frmGy"_s);
    } catch (const Error& error) {
        std::fprintf(stderr, "%s\n", qPrintable(error.text()));
        return 1;
    }
    mekTp::catalogue = {};
    return 0;
}
