#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "catalogue/remembered.h"
#include "catalogue/settings_row.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/desktop/look.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/theme.h"
#include "viewer/frm_tp.h"
#include "viewer/ground.h"
#include "windows/window_place.h"

#include <QDir>
#include <QScreen>

using namespace Qt::Literals::StringLiterals;

// Loading of the main window and the settings that it stores. Failures of loading are ignored: without a catalogue the
// window comes up without content.

namespace {
constexpr int designWidth = 13800;  // 4 by 3, and with its title bar above a task bar on 1366 x 768 pixels
constexpr int smallScreenWidth = 12000;
constexpr QSize smallestWindow(800, 520);
constexpr int firstScreenPicture = 16;  // pictures of the preset album behind this one are backgrounds

QRect screenOf(const QWidget* window) {
    return window->screen()->geometry();
}

void copyScreenPicture(const Recordset& source, Recordset& target, int number) {
    target.AddNew();
    target.Fields(u"序号"_s).SetValue(number);
    target.Fields(u"规格"_s).SetValue(source.Fields(u"规格"_s).Value());
    target.Fields(u"图片"_s).SetValue(source.Fields(u"图片"_s).Value());
    target.Update();
}
}  // namespace

void frmTp::load() {
    mekTp::titleBarExtra = 0;
    const QRect screen = screenOf(this);
    const QRect free = this->screen()->availableGeometry();
    smallScreen_ = twipsFromPixels(screen.width()) < smallScreenWidth;
    const int width = std::min(designWidth, twipsFromPixels(free.width()));
    windowed_ = smallScreen_ ? QSize(twipsFromPixels(screen.width()), twipsFromPixels(screen.height()))
                             : QSize(width, std::min(width / 4 * 3, twipsFromPixels(free.height())));
    setMinimumSize(smallestWindow.boundedTo(free.size()));
    fillScreen(false);

    QDir::setCurrent(programFolder());
    mekTp::currentTable = demoTable;
    attempt([] { mekTp::openCatalogue(); });
    const QString lastAlbum = readSettings();
    applyColours();
    fillAlbumMenu();
    attempt([&] { openTable(lastAlbum); });
    attempt([&] { fillScreenPictures(); });
    tick();
}

QString frmTp::readSettings() {
    Recordset settings;
    attempt([&] { settings = settingsRow(); });
    QString lastAlbum = demoTable;
    attempt([&] { lastAlbum = u"tc"_s + settings.Fields(u"当前像册"_s).Value().textOr(u"00"_s); });
    if (lastAlbum == u"tc") lastAlbum = demoTable;
    attempt([&] { strip_->setCaptions(settings.Fields(u"显示标签"_s).Value().toBool()); });
    mnuBs->setChecked(remembered::flag(stillTitle_.toString()));
    attempt([&] { strip_->setFullScreen(settings.Fields(u"全屏显示"_s).Value().toBool()); });
    attempt([&] {
        const QString title = settings.Fields(u"像册标题"_s).Value().textOr();
        setWindowTitle(u' ' + title);
        strip_->showTitle(windowTitle());
        status_->showCollection(title);
    });
    return lastAlbum;
}

void frmTp::applyColours() {
    ColourScheme scheme;
    attempt([&] { scheme = activeScheme(); });
    wear(scheme);
}

void frmTp::wear(const ColourScheme& scheme) {
    const auto orElse = [](const QColor& colour, const QColor& usual) { return colour.isValid() ? colour : usual; };
    wearGround(orElse(scheme.ground, theme::light().window));
    buttons_->wearColours();
    buttons_->setOuterFrame(orElse(scheme.outerFrame, Qt::black));
    buttons_->setFill(scheme.fill);
    buttons_->setInnerFrame(orElse(scheme.innerFrame, Qt::black));
}

void frmTp::wearGround(const QColor& ground) {
    wearColours(theme::isDark(ground) ? theme::dark(ground) : theme::light());
    setStyleSheet(barStyle(ground));  // before the grounds: it sets former palettes back
    for (QWidget* part : std::initializer_list<QWidget*>{this, form_}) setGround(part, ground);
    page_->setGround(ground);
    screen_->setGround(ground);
    strip_->setGround(ground);
    wearFrame(ground);
}

/// The page lies a little deeper than the window around it.
void frmTp::wearFrame(const QColor& ground) {
    const theme::Colours& worn = theme::worn();
    const QColor lit = theme::isDark(ground) ? worn.edge : worn.lit;
    for (size_t i = 0; i < frame_.size(); ++i) frame_[i]->setColor(i < 2 ? worn.firmEdge : lit);
}

void frmTp::fillAlbumMenu() {
    QStringList titles, tables;
    attempt([&] {
        Recordset albums = mekTp::catalogue.OpenRecordset(u"tcbm"_s);
        for (; !albums.Eof(); albums.MoveNext()) {
            tables << albums.Fields(u"表名"_s).Value().textOr();
            titles << albums.Fields(u"标题"_s).Value().textOr();
        }
    });
    menu_->fill(titles, tables);
}

void frmTp::fillScreenPictures() {
    Recordset screens = mekTp::catalogue.OpenRecordset(u"SELECT * FROM pmtp ORDER BY [序号]"_s);
    if (screens.RecordCount() > 0) return;
    Recordset source = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tc00 WHERE 序号 > %1"_s.arg(firstScreenPicture));
    Transaction together(mekTp::catalogue);
    for (int number = 1; !source.Eof(); source.MoveNext(), ++number) copyScreenPicture(source, screens, number);
    together.commit();
}

void frmTp::storeFlag(const QString& column, bool on) {
    attempt([&] { storeSetting(column, on); });
}

void frmTp::fillScreen(bool on) {
    const QRect screen = screenOf(this);
    if (on) {
        setWindowState(windowState() | Qt::WindowFullScreen);
        setGeometry(screen);
    } else {
        setWindowState(windowState() & ~(Qt::WindowFullScreen | Qt::WindowMaximized));
        const QSize size(pixelsFromTwips(windowed_.width()), pixelsFromTwips(windowed_.height()));
        setGeometry(
            QRect(screen.topLeft() + QPoint((screen.width() - size.width()) / 2, (screen.height() - size.height()) / 2),
                  size));
        if (isVisible()) stayOnScreen(*this);
    }
    if (!isVisible() && on) resizeForm();
}
