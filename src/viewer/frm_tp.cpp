#include "viewer/frm_tp.h"

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "catalogue/remembered.h"
#include "platform/base/error.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/theme.h"
#include "viewer/clock.h"
#include "viewer/window_layout.h"
#include "windows/picture_offer.h"

#include <QMenuBar>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int menuHeight = 30;
constexpr auto keyOfHelp = Qt::ALT | Qt::Key_B;
}  // namespace

frmTp::frmTp(Windows& windows) : windows_(windows) {
    setObjectName(u"frmTp"_s);
    setWindowTitle(u" 览忆集苑（电子像册）"_s);
    form_ = new QWidget(this);
    form_->setMouseTracking(true);
    form_->setAutoFillBackground(true);
    form_->setFocusPolicy(Qt::ClickFocus);
    form_->installEventFilter(this);
    setCentralWidget(form_);
    setContextMenuPolicy(Qt::NoContextMenu);

    // From the bottom up: a later control covers an earlier one.
    strip_ = std::make_unique<ToolStrip>(form_);
    status_ = std::make_unique<StatusLine>(statusBar());
    statusBar()->setObjectName(u"sta1"_s);
    screen_ = std::make_unique<ScreenPanel>(*strip_, form_);
    page_ = std::make_unique<Page>(selection_, form_);
    picRq = new DateDialog(form_);
    filters_ = std::make_unique<FilterControls>(*page_, *strip_, *status_);
    paging_ = std::make_unique<Paging>(*page_, *strip_, *status_);
    buttons_ = std::make_unique<ButtonPanel>(form_);
    for (size_t i = 0; i < frame_.size(); ++i) {
        frame_[i] = make<LineBox>(form_, u"lin%1"_s.arg(i + 1));
    }
    buildMenus();
    view_ = std::make_unique<PictureView>(*page_, *strip_, *status_, *screen_);
    show_ = std::make_unique<SlideShow>(*page_, *strip_);
    picYc = new ShowDialog(form_);
    lstLs = make<DropList>(form_, u"lstLs"_s);
    lstLs->setAccessibleName(u"可选的各项"_s);
    for (SmallDialog* dialog : dialogs()) dialog->installEventFilter(this);
    tmr1 = new QTimer(this);
    tmr1->setObjectName(u"tmr1"_s);
    tmr1->setInterval(100);

    connectControls();
    load();
    tmr1->start();
    form_->setFocus();
}

// The parts are destroyed before the controls that they listen to.
frmTp::~frmTp() = default;

QAction* frmTp::addMenuAction(const QString& name, const QString& caption, const std::function<void()>& click) {
    QAction* item = menuBar()->addAction(caption);
    item->setObjectName(name);
    connect(item, &QAction::triggered, this, guarded(this, click));
    return item;
}

void frmTp::buildMenus() {
    menuBar()->setNativeMenuBar(false);
    menuBar()->setFixedHeight(menuHeight);
    menu_ = std::make_unique<AlbumMenu>(menuBar());
    connect(menu_.get(), &AlbumMenu::closeChosen, this, guarded(this, [this] { closeAlbum(); }));
    connect(menu_.get(), &AlbumMenu::chosen, this, guarded(this, [this](int index) {
                lstLs->hide();
                dkxc(index);
            }));

    addMenuAction(u"mnuSz"_s, u"录入设置(&S)"_s, [this] { goTo(WindowKind::settings); });
    mnuXs = addMenuAction(u"mnuXs"_s, u"显示图片(&X)"_s, [this] { paging_->redrawFromMenu(); });
    mnuXs->setEnabled(false);
    mnuCs = addMenuAction(u"mnuCs"_s, u"窗口配色(&C)"_s, [this] { toggle(WindowKind::colours, coloursAreOpen_); });
    addMenuAction(u"mnuCl"_s, u"图片处理(&L)"_s, [this] { goTo(WindowKind::editor); });
    addMenuAction(u"mnuGy"_s, u"关 于(&G)"_s, [this] { windows_.show(WindowKind::about); });
    mnuBz = addMenuAction(u"mnuBz"_s, u"帮 助(&B)"_s, [this] { toggle(WindowKind::help, helpIsOpen_); });
    addMenuAction(u"mnuTc"_s, u"退 出(&T)"_s, [this] { close(); });

    mnuBs = new QAction(u"标题不变色"_s, this);
    mnuBs->setObjectName(u"mnuBs"_s);
    mnuBs->setCheckable(true);
    mnuBs->setShortcut(Qt::CTRL | Qt::Key_T);
    mnuBs->setShortcutVisibleInContextMenu(true);
    addAction(mnuBs);  // for its key
    strip_->offerOnTitle(mnuBs);
}

void frmTp::connectControls() {
    connect(new OfferTaker(this), &OfferTaker::offered, this, guarded(this, [this](const PictureOffer& offer) {
                leaveColoursOnTrial();
                windows_.takeIn(albumIsOpen_ ? mekTp::currentTable : QString(), offer);
            }));
    connect(mnuBs, &QAction::triggered, this, guarded(this, [this](bool on) { keepTitleStill(on); }));
    connect(tmr1, &QTimer::timeout, this, guarded(this, [this] { tick(); }));
    const ToolStrip* strip = strip_.get();
    connect(strip, &ToolStrip::keyClicked, this, guarded(this, [this](const QString& key) { toolClicked(key); }));
    connect(strip, &ToolStrip::captionsSwitched, page_.get(), &Page::setCaptions);
    connect(strip, &ToolStrip::captionsSwitched, this,
            guarded(this, [this](bool on) { storeFlag(u"显示标签"_s, on); }));
    connect(strip, &ToolStrip::fullScreenSwitched, this, guarded(this, [this](bool on) {
                storeFlag(u"全屏显示"_s, on);
                fillScreen(on);
            }));
    connect(strip, &ToolStrip::columnListWanted, this, &frmTp::listColumns);
    connect(strip, &ToolStrip::numberListWanted, this, &frmTp::listNumberConditions);
    connect(page_.get(), &Page::drawing, strip, &ToolStrip::beginProgress);
    connect(page_.get(), &Page::drawing, screen_.get(), &ScreenPanel::repaintCurtain);
    connect(page_.get(), &Page::progressed, strip, &ToolStrip::showProgress);
    connect(page_.get(), &Page::drawn, this, &frmTp::finishDrawing);
    connect(page_.get(), &Page::cellClicked, lstLs, &QWidget::hide);
    connect(page_.get(), &Page::mousePressed, lstLs, &QWidget::hide);
    connect(page_.get(), &Page::mouseMoved, buttons_.get(), &ButtonPanel::hideRollOver);
    connect(screen_.get(), &ScreenPanel::mousePressed, lstLs, &QWidget::hide);
    connect(screen_.get(), &ScreenPanel::mouseMoved, buttons_.get(), &ButtonPanel::hideRollOver);
    connect(screen_.get(), &ScreenPanel::clicked, this, guarded(this, [this] { clickScreen(); }));
    connect(view_.get(), &PictureView::pageWanted, this, guarded(this, [this](const QString& key) {
                if (strip_->offers(key)) toolClicked(key);
            }));
    connect(view_.get(), &PictureView::showSwitched, this, guarded(this, [this] { space(); }));
    connect(picRq, &DateDialog::dayChosen, this, guarded(this, [this](const DayCondition& day) {
                filters_->chooseDay(day);
                page_->xstp();
            }));
    connect(picRq, &DateDialog::dayDropped, this, guarded(this, [this] { filters_->chooseDay({}); }));
    connect(buttons_.get(), &ButtonPanel::pressed, lstLs, &QWidget::hide);
    connect(buttons_.get(), &ButtonPanel::chosen, this,
            guarded(this, [this](int index, const QString& name) { chooseButton(index, name); }));
}

// ---------------------------------------------------------------------------------------------------------- events

void frmTp::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    runHandler(this, [this] { resizeForm(); });
}

// Another window may keep the program running.
void frmTp::closeEvent(QCloseEvent* event) {
    tmr1->stop();
    show_->stop();
    QMainWindow::closeEvent(event);
}

bool frmTp::eventFilter(QObject* watched, QEvent* event) {
    if (watched != form_) {
        moveFocusWith(static_cast<QWidget*>(watched), event->type());
        return QMainWindow::eventFilter(watched, event);
    }
    if (event->type() == QEvent::MouseButtonPress) lstLs->hide();
    if (event->type() == QEvent::MouseMove) {
        lstLs->hide();
        buttons_->hideRollOver();
    }
    return QMainWindow::eventFilter(watched, event);
}

/// Everything that follows the size of the window.
void frmTp::resizeForm() {
    const int width = widthOf(this);
    const int height = heightOf(this);
    const WindowLayout layout = windowLayout(width, height, mekTp::titleBarExtra / 2);
    const std::array<LineEnds, 4> ends{layout.top, layout.left, layout.bottom, layout.right};
    for (size_t i = 0; i < ends.size(); ++i) frame_[i]->setEnds(ends[i].x1, ends[i].y1, ends[i].x2, ends[i].y2);
    status_->setMessageWidth(layout.messagePanelWidth);
    strip_->layOut(width, smallScreen_);
    buttons_->layOut(layout);
    page_->layOut(layout.page, isLowWindow(width, height));
    const bool wasViewing = screen_->isViewing();
    screen_->layOut(layout.page);

    attempt([&] { buttons_->anxs(); });
    if (mekTp::currentTable != demoTable && page_->picturesPerPage() > 1) screen_->cover();
    if (page_->isShown())
        page_->followSize();
    else
        page_->prepare();
    if (wasViewing) attempt([&] { view_->refit(); });
}

void frmTp::finishDrawing() {
    strip_->endProgress();
    screen_->uncover();
    if (page_->isShown()) status_->showPage(page_->line());
    view_->followPage();
}

void frmTp::tick() {
    const QDateTime now = QDateTime::currentDateTime();
    if (status_->showClock(clockText(now)) && !smallScreen_) colourTitle(now.time());
}

void frmTp::colourTitle(QTime now) {
    strip_->setTitleColours(mnuBs->isChecked() ? stillTitleColours() : titleColours(now));
}

void frmTp::keepTitleStill(bool on) {
    remembered::setFlag(stillTitle_.toString(), on);
    colourTitle(QTime::currentTime());
}

/// A click on the screen panel ends the view of a picture, or brings the page from behind a cover or curtain.
void frmTp::clickScreen() {
    if (screen_->isViewing())
        view_->leave();
    else if (page_->isShown())
        screen_->endView();
    else if (selection_.isOpen())
        paging_->redraw();
}

void frmTp::chooseButton(int index, const QString& name) {
    screen_->changeCurtain();
    buttons_->putCursorOn(index);
    filters_->chooseButton(name);
}

// ------------------------------------------------------------------------------------------------- tool bar and list

void frmTp::toolClicked(const QString& key) {
    const QHash<QString, std::function<void()>> actions{
        {u"dk"_s, [this] { albumIsOpen_ ? closeAlbum() : listAlbums(); }},
        {u"bj"_s, [this] { goTo(WindowKind::settings); }},
        {u"ty"_s, [this] { paging_->firstPage(); }},
        {u"sy"_s, [this] { paging_->previousPage(); }},
        {u"xy"_s, [this] { paging_->nextPage(); }},
        {u"hy"_s, [this] { paging_->lastPage(); }},
        {u"rq"_s, [this] { picRq->open(); }},
        {u"xs"_s, [this] { paging_->redraw(); }},
        {u"hd"_s, [this] { show_->toggle(); }},
        {u"sj"_s, [this] { picYc->open(); }},
        {u"yd"_s, [this] { view_->switchSize(); }},
        {u"bz"_s, [this] { toggle(WindowKind::help, helpIsOpen_); }},
        {u"gb"_s, [this] { close(); }},
    };
    actions.value(key, [] {})();
}

void frmTp::listColumns(const QWidget* box) {
    const QStringList lines{u"1列"_s, u"2列"_s, u"3列"_s, u"4列"_s, u"5列"_s, u"6列"_s};
    lstLs->openUnder(box, lines, [this, lines](int index) {
        strip_->chooseColumns(lines[index]);
        strip_->focusColumns();
    });
}

void frmTp::listNumberConditions(const QWidget* box) {
    const QStringList lines{u"序号任意"_s, u"序号="_s, u"序号>"_s, u"序号<"_s};
    lstLs->openUnder(box, lines, [this, lines](int index) { strip_->chooseNumbers(lines[index]); });
}

// --------------------------------------------------------------------------------------------------- other windows

/// They end with this window: the next one cannot take them back.
void frmTp::leaveColoursOnTrial() {
    if (coloursAreOpen_) applyColours();
}

void frmTp::goTo(WindowKind window) {
    leaveColoursOnTrial();
    windows_.handOver(WindowKind::viewer, window);
}

void frmTp::toggle(WindowKind window, bool isOpen) {
    if (isOpen)
        windows_.unload(window);
    else
        windows_.show(window);
}

void frmTp::windowsBeside(bool help, bool colours) {
    if (help != helpIsOpen_) {
        strip_->showHelp(help);
        mnuBz->setText(help ? u"帮助关闭(B)"_s : u"帮助(B)"_s);
        mnuBz->setShortcut(keyOfHelp);  // in these captions no letter is marked as the key
    }
    mnuCs->setText(colours ? u"配色关闭(&C)"_s : u"窗口配色(&C)"_s);
    helpIsOpen_ = help;
    coloursAreOpen_ = colours;
}
