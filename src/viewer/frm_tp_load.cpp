#include "catalogue/album_rules.h"
#include "catalogue/colour_text.h"
#include "catalogue/mektp.h"
#include "platform/base/conversion.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/tool_icon.h"
#include "viewer/clock.h"
#include "viewer/frm_tp.h"
#include "viewer/settings_row.h"
#include "viewer/window_layout.h"

#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QScreen>

using namespace Qt::Literals::StringLiterals;

// Loading of the main window and the settings that it writes back. What fails while loading is passed over: without a
// catalogue the window comes up without content.

namespace {
constexpr int designWidth = 13800;  // 4 by 3, and with its title bar above a task bar on 1366 x 768 pixels
constexpr int smallScreenWidth = 12000;
constexpr QSize smallestWindow(800, 520);
constexpr int firstScreenPicture = 16;  // pictures of the preset album behind this one are backgrounds

QRect screenOf(const QWidget* window) {
    return window->screen()->geometry();
}

const QColor lightInk(0xe6, 0xea, 0xef), fadedLightInk(0x8b, 0x93, 0x9d);

bool isDark(const QColor& ground) {
    return qGray(ground.rgb()) < 128;
}

/// The ground of a part, and texts that are readable on it.
void setGround(QWidget* widget, const QColor& ground) {
    QPalette palette = QApplication::palette(widget);
    palette.setColor(QPalette::Window, ground);
    if (isDark(ground)) {
        for (const auto role : {QPalette::WindowText, QPalette::ButtonText}) {
            palette.setColor(role, lightInk);
            palette.setColor(QPalette::Disabled, role, fadedLightInk);
        }
    }
    widget->setPalette(palette);
}

/// What the common look says about bars goes with light grounds.
QString darkBars() {
    return u"QMenuBar::item { color: %1; }"
           "QMenuBar::item:selected, QMenuBar::item:pressed, QToolButton:hover { background: rgba(255, 255, 255, 40); }"
           "QToolButton:focus { border-color: #8fd0e6; }"
           "QMenuBar::item:disabled { color: %2; } QToolButton:hover { border-color: transparent; }"
           "QStatusBar { border-top: 1px solid rgba(255, 255, 255, 40); } QStatusBar QLabel { color: %1; }"_s.arg(
               lightInk.name(), fadedLightInk.name());
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
    state_.smallScreen = twipsFromPixels(screen.width()) < smallScreenWidth;
    if (state_.smallScreen) {
        state_.windowedWidth = twipsFromPixels(screen.width());
        state_.windowedHeight = twipsFromPixels(screen.height());
    } else {
        state_.windowedWidth = std::min(designWidth, twipsFromPixels(free.width()));
        state_.windowedHeight = std::min(state_.windowedWidth / 4 * 3, twipsFromPixels(free.height()));
    }
    setMinimumSize(smallestWindow.boundedTo(free.size()));
    fillScreen(false);

    QDir::setCurrent(programFolder());
    mekTp::currentTable = demoTable;
    attempt([] { mekTp::openCatalogue(); });
    const QString lastAlbum = readSettings();
    applyColours();
    fillAlbumMenu();
    attempt([&] { albums_->openTable(lastAlbum); });
    status_->setPanel(1, state_.mainTitle);
    attempt([&] { fillScreenPictures(); });
    tick();
}

QString frmTp::readSettings() {
    Recordset settings;
    attempt([&] { settings = settingsRow(); });
    QString lastAlbum = demoTable;
    attempt([&] { lastAlbum = u"tc"_s + settings.Fields(u"当前像册"_s).Value().textOr(u"00"_s); });
    if (lastAlbum == u"tc") lastAlbum = demoTable;
    const std::array<QString, 2> flags{u"显示标签"_s, u"全屏显示"_s};
    for (size_t i = 0; i < flags.size(); ++i)
        attempt([&] { strip_->chkBq[i]->setChecked(settings.Fields(flags[i]).Value().toBool()); });
    attempt([&] {
        state_.mainTitle = settings.Fields(u"像册标题"_s).Value().textOr();
        setWindowTitle(u' ' + state_.mainTitle);
        strip_->txtWd->setText(windowTitle());
    });
    return lastAlbum;
}

void frmTp::applyColours() {
    Recordset scheme;
    attempt([&] {
        const Recordset settings = settingsRow();
        scheme = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcys WHERE 序号 = "_s +
                                                quoted(settings.Fields(u"颜色"_s).Value().toText()));
    });
    const auto colour = [&](const QString& column) { return colourFromText(scheme.Fields(column).Value().toText()); };
    attempt([&] {
        const QColor ground = colour(u"窗体"_s);
        setStyleSheet(isDark(ground) ? darkBars() : QString());  // first: it sets former palettes back
        for (QWidget* part : std::initializer_list<QWidget*>{this, form_, page_->pic1, screen_->pic0})
            setGround(part, ground);
        // The program's style sheet keeps the window's palette from these.
        for (QCheckBox* box : strip_->chkBq) setGround(box, ground);
        QPalette words = QApplication::palette(strip_->txtD1);
        if (isDark(ground)) words.setColor(QPalette::Text, lightInk);
        strip_->txtD1->setPalette(words);
        const auto icons = isDark(ground) ? IconGround::dark : IconGround::light;
        strip_->tlb1->setIconSource([icons](const QString& key) { return toolIcon(key, icons); });
    });
    attempt([&] { buttons_->shpAb->setBorderColor(colour(u"外框"_s)); });
    attempt([&] { buttons_->shpAb->setFillColor(colour(u"填充"_s)); });
    attempt([&] { buttons_->shpA1->setBorderColor(colour(u"内框"_s)); });
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
    QStringList tips = tipsOfEqualTitles(titles, tables);
    if (titles.isEmpty()) {
        titles << menu_.mnuCd[0]->text();
        tips << QString();
    }
    menu_.mnuDk->setToolTipsVisible(true);
    QAction* const end = menu_.mnuDk->actions().constFirst();
    for (int i = 0; i < titles.size(); ++i) {
        if (i == menu_.mnuCd.size()) menu_.mnuCd << new QAction(this);
        QAction* item = menu_.mnuCd[i];
        item->setObjectName(element(u"mnuCd"_s, i));
        item->setText(titles[i].replace(u"&"_s, u"&&"_s));
        item->setToolTip(tips[i]);
        item->setCheckable(true);
        menu_.mnuDk->insertAction(end, item);
        connect(item, &QAction::triggered, this, guarded(this, [this, i] {
                    lstLs->hide();
                    albums_->dkxc(i);
                }));
    }
}

void frmTp::fillScreenPictures() {
    Recordset screens = mekTp::catalogue.OpenRecordset(u"SELECT * FROM pmtp ORDER BY [序号]"_s);
    if (screens.RecordCount() > 0) return;
    Recordset source = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tc00 WHERE 序号 > %1"_s.arg(firstScreenPicture));
    Transaction together(mekTp::catalogue);
    for (int number = 1; !source.Eof(); source.MoveNext(), ++number) copyScreenPicture(source, screens, number);
    together.commit();
}

/// Writes a check box back; full screen takes effect at once, captions with the next page.
void frmTp::storeFlag(int index) {
    const bool on = strip_->chkBq[size_t(index)]->isChecked();
    attempt([&] { storeSetting(index == 0 ? u"显示标签"_s : u"全屏显示"_s, on); });
    if (index == 1) fillScreen(on);
}

void frmTp::fillScreen(bool on) {
    const QRect screen = screenOf(this);
    if (on) {
        setWindowState(windowState() | Qt::WindowFullScreen);
        setGeometry(screen);
    } else {
        setWindowState(windowState() & ~(Qt::WindowFullScreen | Qt::WindowMaximized));
        const QSize size(pixelsFromTwips(state_.windowedWidth), pixelsFromTwips(state_.windowedHeight));
        setGeometry(
            QRect(screen.topLeft() + QPoint((screen.width() - size.width()) / 2, (screen.height() - size.height()) / 2),
                  size));
    }
    if (!isVisible() && on) resizeForm();
}
