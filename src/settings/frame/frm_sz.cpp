#include "settings/frame/frm_sz.h"

#include "catalogue/mektp.h"
#include "platform/base/error.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/shapes.h"
#include "settings/frame/tab_strip.h"
#include "windows/window_place.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <QSizeGrip>
#include <QTabBar>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int windowWidth = 9600;
constexpr int windowHeight = 7200;
constexpr int tabsHeight = 6840;
constexpr int outerFrameHeight = 6375;
constexpr int innerFrameHeight = 6320;

/// Whether a key in the tab control, or in its strip of captions, brings another page to the front.
bool turnsPage(const QKeyEvent& key, bool inStrip) {
    const bool arrow = key.key() == Qt::Key_Left || key.key() == Qt::Key_Right;
    const bool tab = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
    return (inStrip && arrow) || (tab && (key.modifiers() & Qt::ControlModifier));
}

}  // namespace

frmSz::frmSz(Windows& windows, const Furnishing& furnish, QWidget* parent)
    : QWidget(parent),
      windows_(windows),
      sstFz(makeTabs(this)),
      shpWk(make<ShapeBox>(sstFz->page(setupTab), u"shpWk"_s)),
      shpNk(make<ShapeBox>(sstFz->page(setupTab), u"shpNk"_s)),
      hints_(sstFz),
      albums_(sstFz),
      grid_(sstFz),
      choices_(sstFz),
      runBar_(this, sstFz) {
    setObjectName(u"frmSz"_s);
    setWindowTitle(u" 览忆集苑(图片录入及系统设置)"_s);
    setMinimumSize(pixelsFromTwips(windowWidth), pixelsFromTwips(windowHeight));
    resize(minimumSize());
    for (ShapeBox* shape : {shpWk, shpNk}) letGrow(shape, fills);
    makeOuterButtons();
    contents_ = furnish({this, sstFz, hints_, work_, albums_, grid_, choices_, runBar_});
    load();
    connectEvents();
    new RememberedSize(this);
}

frmSz::~frmSz() = default;

TabControl* frmSz::makeTabs(QWidget* form) {
    auto* tabs = make<TabControl>(form, u"sstFz"_s);
    place(tabs, 0, 0, windowWidth, tabsHeight - mekTp::titleBarExtra);
    letGrow(tabs, fills);
    for (const QString& caption : {u"图册设置"_s, u"图片录入"_s, u"图册编辑"_s, u"图片转存"_s}) tabs->addPage(caption);
    return tabs;
}

void frmSz::makeOuterButtons() {
    constexpr int top = 6855;
    constexpr int width = 990;
    constexpr int pitch = 1050;
    constexpr int gripWidth = 240;
    const auto button = [&](const QString& name, const QString& caption, int fromRight) {
        auto* made = make<QPushButton>(this, name, caption);
        place(made, windowWidth - gripWidth - 60 - width - fromRight * pitch, top, width, 330);
        letGrow(made, movesRight + movesDown);
        return made;
    };
    auto* cmdFh = button(u"cmdFh"_s, u"返回"_s, 2);
    auto* cmdGl = button(u"cmdGl"_s, u"关闭"_s, 1);
    auto* cmdBz = button(u"cmdBz"_s, u"帮助"_s, 0);
    auto* grip = new QSizeGrip(this);
    place(grip, windowWidth - gripWidth, windowHeight - gripWidth, gripWidth, gripWidth);
    letGrow(grip, movesRight + movesDown);

    for (QPushButton* leaving : {cmdFh, cmdGl}) runBar_.leaveFree(leaving);
    connect(cmdFh, &QPushButton::clicked, this,
            guarded(this, [this] { leave([this] { windows_.handOver(WindowKind::settings, WindowKind::viewer); }); }));
    connect(cmdGl, &QPushButton::clicked, this, guarded(this, [this] { leave([this] { windows_.endProgram(); }); }));
    connect(cmdBz, &QPushButton::clicked, this, guarded(this, [this] { windows_.showHelp(u"3 软件的使用"_s); }));
}

void frmSz::load() {
    albums_.mayLeave = [this] { return page().mayLeave(); };
    attempt([&] { albums_.fill(); });
    attempt([&] { grid_.listAlbum(mekTp::currentTable, u"序号"_s); });
    sstFz->setCurrentIndex(setupTab);
    sstFzClick();
}

void frmSz::connectEvents() {
    auto* offers = new OfferTaker(this);
    offers->mayTake = [this] { return !runBar_.isAtWork(); };
    connect(offers, &OfferTaker::offered, this, guarded(this, [this](const PictureOffer& offer) { takeOffer(offer); }));
    for (QWidget* part : {static_cast<QWidget*>(sstFz), static_cast<QWidget*>(sstFz->tabBar())})
        part->installEventFilter(this);
    connect(sstFz, &QTabWidget::currentChanged, this, guarded(this, [this] { sstFzClick(); }));
    connect(sstFz, &TabControl::mouseMovedAt, this, &frmSz::pointerMoved);
    connect(&albums_, &AlbumEntry::chosen, this, guarded(this, [this] { takeAlbum(); }));
    connect(&albums_, &AlbumEntry::lost, this, guarded(this, [this] { loseAlbum(); }));
    connect(&grid_, &RecordGrid::rowSelected, this, guarded(this, [this] { page().rowSelected(); }));
    connect(&grid_, &RecordGrid::rowClicked, this, guarded(this, [this] { page().rowClicked(); }));
    grid_.mayGoTo = [this](int row) { return page().mayGoTo(row); };
    connect(&grid_, &RecordGrid::moved, this, guarded(this, [this] { page().recordChanged(); }));
    connect(&runBar_, &RunBar::begun, &grid_, &RecordGrid::hold);
    connect(&runBar_, &RunBar::ended, &grid_, &RecordGrid::release);
}

SettingsPage& frmSz::page() const {
    return *contents_.pages.at(static_cast<std::size_t>(sstFz->currentIndex()));
}

// The switch to another page: every step stands by itself, so that one that fails leaves only its own control behind.
void frmSz::sstFzClick() {
    for (const auto& part : contents_.parts) attempt([&] { part->pageTurned(); });
    work_.end();
    // A page that was left in the middle of its work may have locked them.
    albums_.setEnabled(true);
    grid_.setEnabled(true);
    if (albums_.line().isEmpty()) grid_.clear();

    const PageLayout layout = page().layout();
    placeSharedControls(layout);
    page().enter();
    if (layout.chooser) albums_.take();
    hints_.showKept();
}

void frmSz::placeSharedControls(const PageLayout& layout) {
    const int page = sstFz->currentIndex();
    hints_.putOn(page);
    sstFz->putOn(page, shpWk, 70, 370, windowWidth - 140, outerFrameHeight - mekTp::titleBarExtra);
    sstFz->putOn(page, shpNk, 100, 400, windowWidth - 200, innerFrameHeight - mekTp::titleBarExtra);
    shpWk->setBorderColor(layout.outerFrame);
    shpNk->setBorderColor(layout.innerFrame);
    shpNk->lower();
    shpWk->lower();
    grid_.setGrowth(layout.gridGrowth);
    if (layout.gridGroup != nullptr)
        grid_.putIn(layout.gridGroup, layout.grid);
    else
        grid_.putOn(page, layout.grid);
    grid_.setHeadings(layout.gridHeadings);
    grid_.rememberWidths(page);
    albums_.putOn(page, layout.chooser);
}

// The choice of an album. What fails in between leaves its own control as it was.
void frmSz::takeAlbum() {
    attempt([&] { grid_.listAlbum(albums_.table(), u"序号"_s); });
    page().albumChosen();
}

void frmSz::loseAlbum() {
    grid_.clear();
    // They set buttons free, which the page then takes back.
    for (const auto& part : contents_.parts) attempt([&] { part->albumLost(); });
    page().albumLost();
}

/// A run is asked about first, and has come to its end before the window is left.
void frmSz::leave(const std::function<void()>& way) {
    if (runBar_.isAtWork())
        runBar_.askToLeave([this, way] { leave(way); });
    else if (page().mayLeave())
        way();
}

void frmSz::closeEvent(QCloseEvent* event) {
    bool leaves = false;
    runHandler(this, [&] {
        if (runBar_.isAtWork())
            runBar_.askToLeave([this] { close(); });
        else
            leaves = page().mayLeave();
    });
    event->setAccepted(leaves);
}

void frmSz::takeOffer(const PictureOffer& offer) {
    if (sstFz->currentIndex() != intakeTab) {
        if (work_.isUnderWay()) warnBeforeLeaving();
        if (work_.isUnderWay() || !page().mayLeave()) return;
        sstFz->setCurrentIndex(intakeTab);
    }
    QStringList paths = offer.paths;
    if (paths.isEmpty()) paths << pasted_.keep(offer, this);
    if (!paths.front().isEmpty()) page().filesDropped(paths);
}

void frmSz::takeIn(const QString& table, const PictureOffer& offer) {
    sstFz->setCurrentIndex(intakeTab);
    if (!table.isEmpty()) albums_.choose(table);
    takeOffer(offer);
}

/// Keys reach another page without the pointer entering the strip.
bool frmSz::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && work_.isUnderWay() &&
        turnsPage(static_cast<QKeyEvent&>(*event), watched == sstFz->tabBar())) {
        warnBeforeLeaving();
        if (work_.isUnderWay()) return true;
    }
    return QWidget::eventFilter(watched, event);
}

void frmSz::pointerMoved(int x, int y) {
    if (work_.isUnderWay()) {
        if (leadsToOtherPage(x, y)) warnBeforeLeaving();
    } else if (const auto hint = captionHint(x, y)) {
        hints_.showForCaption(*hint);
    } else {
        hints_.showKept();
    }
}

void frmSz::warnBeforeLeaving() {
    // The pointer goes on moving while the box is open.
    if (std::exchange(warning_, true)) return;
    if (ask(this,
            u"警  告：\n\n在未保存前切换页框或关闭，将造成刚才的操作全部作废！\n\n"
            "如果一定要切换，按《确定》；否则按《取消》。"_s,
            BoxIcon::information, u"警 告！！！！"_s))
        work_.end();
    warning_ = false;
}
