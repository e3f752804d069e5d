#include "viewer/frm_tp.h"

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "platform/base/error.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "viewer/clock.h"
#include "viewer/window_layout.h"

#include <QMenuBar>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int menuHeight = 30;
const QColor pageFrameShade(0xa9, 0xa1, 0x92);
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

    // Made from the bottom up: what is made later lies over what was made before.
    strip_ = std::make_unique<ToolStrip>(form_);
    status_ = std::make_unique<StatusLine>(statusBar());
    statusBar()->setObjectName(u"sta1"_s);
    screen_ = std::make_unique<ScreenPanel>(strip_->tlb1, form_);
    page_ = std::make_unique<Page>(state_, *strip_, *status_, *screen_, this, form_);
    screen_->pic0->raise();
    filters_ = std::make_unique<FilterControls>(state_, *strip_, *status_, *page_, this, form_);
    paging_ = std::make_unique<Paging>(state_, *strip_, *status_, *page_, *filters_, this);
    buttons_ = std::make_unique<ButtonPanel>(state_, *strip_, *status_, *screen_, *page_, *filters_, this, form_);
    for (size_t i = 0; i < frame_.size(); ++i) {
        frame_[i] = make<LineBox>(form_, u"lin%1"_s.arg(i + 1));
        frame_[i]->setColor(i < 2 ? pageFrameShade : QColor(Qt::white));
    }
    buildMenus();
    albums_ = std::make_unique<AlbumOpening>(state_, *strip_, *status_, *screen_, *buttons_, *page_, menu_);
    view_ = std::make_unique<PictureView>(state_, *strip_, *screen_, *page_, this);
    show_ = std::make_unique<SlideShow>(state_, *strip_, *page_, this, form_);
    lstLs = make<DropList>(form_, u"lstLs"_s);
    lstLs->setAccessibleName(u"可选的各项"_s);
    for (QWidget* dialog : {filters_->picRq, show_->picYc}) dialog->installEventFilter(this);
    tmr1 = new QTimer(this);
    tmr1->setObjectName(u"tmr1"_s);
    tmr1->setInterval(100);

    connectControls();
    load();
    tmr1->start();
    form_->setFocus();
}

// The chapters go before the controls that they listen to.
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
    menu_.mnuDk = menuBar()->addMenu(u"打开图册(&D)"_s);
    menu_.mnuDk->setObjectName(u"mnuDk"_s);
    menu_.mnuDk->menuAction()->setObjectName(u"mnuDk"_s);
    menu_.mnuTg = menu_.mnuDk->addAction(u"关闭图册"_s);
    menu_.mnuTg->setObjectName(u"mnuTg"_s);
    menu_.mnuTg->setEnabled(false);
    connect(menu_.mnuTg, &QAction::triggered, this, guarded(this, [this] { albums_->close(); }));
    menu_.mnuDk->insertSeparator(menu_.mnuTg);

    addMenuAction(u"mnuSz"_s, u"录入设置(&S)"_s, [this] { goTo(WindowKind::settings); });
    menu_.mnuXs = addMenuAction(u"mnuXs"_s, u"显示图片(&X)"_s, [this] { paging_->redrawFromMenu(); });
    menu_.mnuXs->setEnabled(false);
    mnuCs = addMenuAction(u"mnuCs"_s, u"窗口配色(&C)"_s, [this] { toggleColours(); });
    addMenuAction(u"mnuCl"_s, u"图片处理(&L)"_s, [this] { goTo(WindowKind::editor); });
    addMenuAction(u"mnuGy"_s, u"关 于(&G)"_s, [this] { windows_.show(WindowKind::about); });
    mnuBz = addMenuAction(u"mnuBz"_s, u"帮 助(&B)"_s, [this] { toggleHelp(); });
    addMenuAction(u"mnuTc"_s, u"退 出(&T)"_s, [this] { close(); });
    // Until the catalogue tells the albums.
    menu_.mnuCd = {new QAction(u"演示"_s, this)};
    menu_.mnuCd[0]->setObjectName(element(u"mnuCd"_s, 0));
}

void frmTp::connectControls() {
    connect(strip_->tlb1, &ToolBar::buttonClicked, this,
            guarded(this, [this](const QString& key) { toolClicked(key); }));
    for (int i = 0; i < int(strip_->chkBq.size()); ++i)
        connect(strip_->chkBq[size_t(i)], &QCheckBox::toggled, this, guarded(this, [this, i] { storeFlag(i); }));
    connect(tmr1, &QTimer::timeout, this, guarded(this, [this] { tick(); }));

    connect(strip_->txtLs, &TextBox::clicked, this, [this] { listColumns(); });
    for (const TextBox* box : {strip_->txtXh, strip_->txtXx})
        connect(box, &TextBox::clicked, this, [this] { listNumberConditions(); });
    connect(lstLs, &DropList::lineClicked, this, guarded(this, [this](int index) { listClicked(index); }));
    connect(page_.get(), &Page::cellClicked, lstLs, &QWidget::hide);
    connect(page_->pic1, &Surface::mousePressed, lstLs, &QWidget::hide);
    connect(screen_->img0, &ImageBox::mousePressed, lstLs, &QWidget::hide);
    connect(buttons_.get(), &ButtonPanel::pressed, lstLs, &QWidget::hide);
    connect(screen_->img0, &ImageBox::clicked, this, guarded(this, [this] { clickScreen(); }));
    connect(page_->pic1, &Surface::mouseMoved, this, [this] { buttons_->hideRollOver(); });
    connect(screen_->img0, &ImageBox::mouseMoved, this, [this] { buttons_->hideRollOver(); });
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
    state_.pageAreaWidth = layout.pageAreaWidth;
    state_.pageAreaHeight = layout.pageAreaHeight;
    state_.buttonStripHeight = layout.buttonStripHeight;
    const std::array<LineEnds, 4> ends{layout.top, layout.left, layout.bottom, layout.right};
    for (size_t i = 0; i < ends.size(); ++i) frame_[i]->setEnds(ends[i].x1, ends[i].y1, ends[i].x2, ends[i].y2);
    status_->setMessageWidth(layout.messagePanelWidth);
    strip_->layOut(width, state_.smallScreen);
    buttons_->layOut(layout);
    place(page_->pic1, layout.page.left, layout.page.top, layout.page.width, layout.page.height);
    const bool wasViewing = screen_->isViewing();
    screen_->layOut(layout.page);

    attempt([&] { buttons_->anxs(); });
    if (mekTp::currentTable != demoTable && state_.picturesPerPage > 1) screen_->cover();
    if (state_.pageShown)
        page_->xstp();
    else
        page_->prepare();
    if (wasViewing) attempt([&] { view_->refit(); });
}

void frmTp::tick() {
    const QDateTime now = QDateTime::currentDateTime();
    const QString text = clockText(now);
    if (status_->panel(4) == text) return;
    status_->setPanel(4, text);
    const TitleColours colours = titleColours(now.time());
    if (!state_.smallScreen) strip_->setTitleColours(colours.text, colours.ground);
}

/// The picture on the screen panel: one in view gives way to the page, and so does a cover or curtain.
void frmTp::clickScreen() {
    if (screen_->isViewing() || state_.pageShown)
        view_->close();
    else if (!state_.albumRecordset.isNothing())
        paging_->redraw();
}

// ------------------------------------------------------------------------------------------------- tool bar and list

void frmTp::toolClicked(const QString& key) {
    const QHash<QString, std::function<void()>> actions{
        {u"dk"_s, [this] { strip_->tlb1->image(u"dk"_s) == u"dk" ? listAlbums() : albums_->close(); }},
        {u"bj"_s, [this] { goTo(WindowKind::settings); }},
        {u"ty"_s, [this] { paging_->firstPage(); }},
        {u"sy"_s, [this] { paging_->previousPage(); }},
        {u"xy"_s, [this] { paging_->nextPage(); }},
        {u"hy"_s, [this] { paging_->lastPage(); }},
        {u"rq"_s, [this] { filters_->openDateDialog(); }},
        {u"xs"_s, [this] { paging_->redraw(); }},
        {u"hd"_s, [this] { show_->toggle(); }},
        {u"sj"_s, [this] { show_->openDialog(); }},
        {u"yd"_s, [this] { view_->switchSize(); }},
        {u"bz"_s, [this] { toggleHelp(); }},
        {u"gb"_s, [this] { close(); }},
    };
    actions.value(key, [] {})();
    strip_->tlb1->update();
}

void frmTp::listColumns() {
    lstLs->open({u"1列"_s, u"2列"_s, u"3列"_s, u"4列"_s, u"5列"_s, u"6列"_s}, leftOf(strip_->txtLs) + 70, 380,
                widthOf(strip_->txtLs), 1000);
}

void frmTp::listNumberConditions() {
    lstLs->open({u"序号任意"_s, u"序号="_s, u"序号>"_s, u"序号<"_s}, leftOf(strip_->txtXh) + 70, 380,
                widthOf(strip_->txtXh), 1000);
}

void frmTp::listAlbums() {
    QStringList lines;
    attempt([&] {
        Recordset albums = mekTp::catalogue.OpenRecordset(u"tcbm"_s);
        for (; !albums.Eof(); albums.MoveNext()) lines << u' ' + albums.Fields(u"标题"_s).Value().textOr();
    });
    const int rows = int(lines.size());
    lines << u" 演 示"_s;
    lstLs->open(lines, 150, 380, 1500, rows * 180 + 270);
    lstLs->takeKeys();
    state_.dateCondition.clear();
}

void frmTp::listClicked(int index) {
    const DropList::Role role = lstLs->role();
    const QString line = lstLs->List(index);
    lstLs->hide();
    switch (role) {
        case DropList::Role::albums:
            albums_->dkxc(index);
            strip_->tlb1->setImage(u"dk"_s, u"hs"_s);
            strip_->tlb1->setToolTip(u"dk"_s, u"合上像册"_s);
            break;
        case DropList::Role::numbers: {
            const bool any = line == u"序号任意";
            strip_->showNumberBox(!any);
            strip_->txtXh->setText(line);
            if (!any) strip_->txtXx->setFocus();
            break;
        }
        case DropList::Role::columns:
            strip_->txtLs->setText(line);
            strip_->txtLs->setFocus();
            break;
        case DropList::Role::none:
            break;
    }
}

// --------------------------------------------------------------------------------------------------- other windows

void frmTp::goTo(WindowKind window) {
    windows_.handOver(WindowKind::viewer, window);
}

void frmTp::toggleColours() {
    if (mnuCs->text() == u"窗口配色(&C)")
        windows_.show(WindowKind::colours);
    else
        windows_.unload(WindowKind::colours);
}

void frmTp::offerColours(bool on) {
    mnuCs->setText(on ? u"窗口配色(&C)"_s : u"配色关闭(&C)"_s);
}

void frmTp::toggleHelp() {
    if (isHelpOffered())
        windows_.show(WindowKind::help);
    else
        windows_.unload(WindowKind::help);
}

bool frmTp::isHelpOffered() const {
    return strip_->tlb1->button(u"bz"_s)->toolTip() == u"帮助";
}

void frmTp::offerHelp(bool on) {
    strip_->tlb1->setImage(u"bz"_s, on ? u"bz"_s : u"bg"_s);
    strip_->tlb1->setToolTip(u"bz"_s, on ? u"帮助"_s : u"帮助关闭"_s);
    mnuBz->setText(on ? u"帮助(B)"_s : u"帮助关闭(B)"_s);
}

void frmTp::windowsBeside(bool help, bool colours) {
    if (help == isHelpOffered()) offerHelp(!help);
    offerColours(!colours);
}
