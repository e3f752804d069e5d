#include "settings/frm_sz.h"

#include "catalogue/mektp.h"
#include "platform/base/error.h"
#include "platform/desktop/data_control.h"
#include "platform/desktop/grid.h"
#include "platform/desktop/list_box.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/shapes.h"
#include "platform/desktop/surface.h"
#include "platform/desktop/tab_control.h"
#include "settings/album_lines.h"
#include "settings/editing_page.h"
#include "settings/tab_strip.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QProgressBar>
#include <QPushButton>
#include <QTabBar>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int windowWidth = 9600;
constexpr int windowHeight = 7200;
constexpr int tabsHeight = 6840;
constexpr int outerFrameHeight = 6375;
constexpr int innerFrameHeight = 6320;
constexpr int chooserHeight = 285;

const QColor hintColor(0, 0, 192);
const QColor captionHintColor(255, 0, 0);

/// A page of the room below among the pages of the frame.
template <typename Page>
class TabPage : public SettingsPage {
  public:
    explicit TabPage(Page& page) : page_(page) {}
    void enter() override { page_.enter(); }
    void albumChosen() override { page_.albumChosen(); }
    void albumLost() override { page_.albumLost(); }
    void rowClicked() override { page_.rowClicked(); }
    void recordChanged() override { page_.recordChanged(); }

  private:
    Page& page_;
};

/// Whether a key in the tab control, or in its strip of captions, brings another page to the front.
bool turnsPage(const QKeyEvent& key, bool inStrip) {
    const bool arrow = key.key() == Qt::Key_Left || key.key() == Qt::Key_Right;
    const bool tab = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
    return (inStrip && arrow) || (tab && (key.modifiers() & Qt::ControlModifier));
}

}  // namespace

frmSz::frmSz(Windows& windows, QWidget* parent) : QWidget(parent), windows_(windows) {
    setObjectName(u"frmSz"_s);
    setWindowTitle(u" 览忆集苑(图片录入及系统设置)"_s);
    setFixedSize(pixelsFromTwips(windowWidth), pixelsFromTwips(windowHeight));

    makeSharedControls();
    makeOuterButtons();
    hints_ = std::make_unique<HintLine>(shared_.lblTs, state_);
    browser_ = std::make_unique<BrowserPanel>(shared_, state_, *hints_);
    mapping_ = std::make_unique<MappingPanel>(shared_, state_, *hints_, *browser_);
    codeButtons_ = std::make_unique<CodeButtons>(shared_, state_);
    preview_ = std::make_unique<PreviewPanel>(shared_, state_);
    intake_ = std::make_unique<IntakePage>(shared_, state_, *hints_, *browser_, *mapping_, *codeButtons_, *preview_);
    transfer_ =
        std::make_unique<TransferPage>(shared_, state_, *hints_, *browser_, *mapping_, *codeButtons_, *preview_);

    auto setup = std::make_unique<SetupPage>(shared_, state_, *hints_, *preview_);
    setup_ = setup.get();
    pages_ = {std::move(setup), std::make_unique<TabPage<IntakePage>>(*intake_),
              std::make_unique<EditingPage>(shared_, state_, *hints_, *preview_),
              std::make_unique<TabPage<TransferPage>>(*transfer_)};

    load();
    connectEvents();
}

frmSz::~frmSz() = default;

void frmSz::makeSharedControls() {
    shared_.form = this;
    auto* sstFz = shared_.sstFz = make<TabControl>(this, u"sstFz"_s);
    place(sstFz, 0, 0, windowWidth, tabsHeight - mekTp::titleBarExtra);
    for (const QString& caption : {u"图册设置"_s, u"图片录入"_s, u"图册编辑"_s, u"图片转存"_s}) sstFz->addPage(caption);

    shpWk = make<ShapeBox>(sstFz->page(setupTab), u"shpWk"_s);
    shpNk = make<ShapeBox>(sstFz->page(setupTab), u"shpNk"_s);
    for (ShapeBox* shape : {shpWk, shpNk}) shape->setBorderWidth(2);

    shared_.lblTs = make<QLabel>(sstFz->page(setupTab), u"lblTs"_s);
    shared_.lblXc = make<QLabel>(sstFz->page(intakeTab), u"lblXc"_s);
    shared_.lbl1 = make<QLabel>(sstFz->page(intakeTab), u"lbl1"_s, u"请先选择图册"_s);

    auto* cboBm = shared_.cboBm = make<QComboBox>(sstFz->page(intakeTab), u"cboBm"_s);
    cboBm->setAccessibleName(u"图册"_s);
    cboBm->setEditable(true);
    cboBm->setInsertPolicy(QComboBox::NoInsert);
    albums_ = new AlbumEntry(cboBm, state_);
    albums_->mayLeave = [this] { return page().mayLeave(); };

    shared_.datBj = make<DataControl>(sstFz->page(editingTab), u"datBj"_s);
    shared_.msgBm = make<Grid>(sstFz->page(setupTab), u"msgBm"_s);
    shared_.msgBm->setAccessibleName(u"记录"_s);
    shared_.msgBm->bind(shared_.datBj);
    shared_.lstBh = make<ListBox>(sstFz->page(editingTab), u"lstBh"_s);
    shared_.lstBh->setAccessibleName(u"可选的编号"_s);
    shared_.lstSu = make<ListBox>(sstFz->page(intakeTab), u"lstSu"_s);
    shared_.lstSu->setAccessibleName(u"选中的文件"_s);
    shared_.lstSu->hide();
    shared_.prg2 = make<QProgressBar>(sstFz->page(editingTab), u"prg2"_s);
    shared_.prg2->hide();
}

void frmSz::makeOuterButtons() {
    constexpr int top = 6855;
    constexpr int width = 990;
    constexpr int pitch = 1080;
    const auto button = [&](const QString& name, const QString& caption, int fromRight) {
        auto* made = make<QPushButton>(this, name, caption);
        place(made, windowWidth - 100 - width - fromRight * pitch, top, width, 330);
        return made;
    };
    auto* cmdFh = button(u"cmdFh"_s, u"返回"_s, 2);
    auto* cmdGl = button(u"cmdGl"_s, u"关闭"_s, 1);
    auto* cmdBz = button(u"cmdBz"_s, u"帮助"_s, 0);

    connect(cmdFh, &QPushButton::clicked, this, guarded(this, [this] {
                if (page().mayLeave()) windows_.handOver(WindowKind::settings, WindowKind::viewer);
            }));
    connect(cmdGl, &QPushButton::clicked, this, guarded(this, [this] {
                if (page().mayLeave()) windows_.endProgram();
            }));
    connect(cmdBz, &QPushButton::clicked, this, guarded(this, [this] { windows_.showHelp(u"3 软件的使用"_s); }));
}

void frmSz::load() {
    attempt([&] { fillAlbumLines(*shared_.cboBm, mekTp::catalogue); });
    DataControl* datBj = shared_.datBj;
    datBj->useDatabase(mekTp::catalogue);
    datBj->setDatabaseName(mekTp::cataloguePath());
    datBj->setRecordSource(u"SELECT * FROM "_s + mekTp::currentTable + u" ORDER BY [序号]"_s);
    attempt([&] { datBj->Refresh(); });
    shared_.sstFz->setCurrentIndex(setupTab);
    sstFzClick();
}

void frmSz::connectEvents() {
    for (QWidget* part : {static_cast<QWidget*>(shared_.sstFz), static_cast<QWidget*>(shared_.sstFz->tabBar())})
        part->installEventFilter(this);
    connect(shared_.sstFz, &QTabWidget::currentChanged, this, guarded(this, [this] { sstFzClick(); }));
    connect(shared_.sstFz, &TabControl::mouseMovedAt, this, &frmSz::pointerMoved);
    connect(albums_, &AlbumEntry::chosen, this, guarded(this, [this] { takeAlbum(); }));
    connect(albums_, &AlbumEntry::lost, this, guarded(this, [this] { loseAlbum(); }));
    connect(shared_.msgBm, &Grid::rowSelected, this, guarded(this, [this] { page().rowSelected(); }));
    connect(shared_.msgBm, &Grid::rowClicked, this, guarded(this, [this] { page().rowClicked(); }));
    shared_.datBj->mayGoTo = [this](int row) { return page().mayGoTo(row); };
    connect(shared_.datBj, &DataControl::repositioned, this, guarded(this, [this] { page().recordChanged(); }));
}

SettingsTab frmSz::tab() const {
    return static_cast<SettingsTab>(shared_.sstFz->currentIndex());
}

SettingsPage& frmSz::page() const {
    return *pages_.at(static_cast<std::size_t>(shared_.sstFz->currentIndex()));
}

bool frmSz::albumIsChosen() const {
    return !shared_.cboBm->currentText().isEmpty();
}

// The switch to another page: every step stands by itself, so that one that fails leaves only its own control behind.
void frmSz::sstFzClick() {
    state_.sourceTable.clear();
    state_.targetTable.clear();
    codeButtons_->ycbh();
    shared_.lbl1->show();
    state_.pageFree = true;
    if (!browser_->picMl()->isHidden()) attempt([&] { browser_->cmdMxClick(); });
    if (preview_->isOpen()) attempt([&] { preview_->cmdCgClick(); });
    shared_.datBj->setDatabaseName(mekTp::cataloguePath());
    // A page that was left in the middle of its work may have locked them.
    shared_.cboBm->setEnabled(true);
    shared_.msgBm->setEnabled(true);
    shared_.lstSu->setEnabled(true);
    if (!albumIsChosen()) shared_.msgBm->Clear();

    placeSharedControls();
    page().enter();
    if (tab() != setupTab) {
        if (albumIsChosen())
            albums_->take();
        else
            loseAlbum();
    }
    showHint(state_.hintText, hintColor);
}

void frmSz::placeSharedControls() {
    TabControl* sstFz = shared_.sstFz;
    const int page = sstFz->currentIndex();
    const PageLayout& layout = layoutOf(tab());

    sstFz->putOn(page, shared_.lblTs, 225, 495, 9150, 210);
    shared_.datBj->setVisible(tab() == editingTab);

    sstFz->putOn(page, shpWk, 70, 370, windowWidth - 140, outerFrameHeight - mekTp::titleBarExtra);
    sstFz->putOn(page, shpNk, 100, 400, windowWidth - 200, innerFrameHeight - mekTp::titleBarExtra);
    shpWk->setBorderColor(layout.outerFrame);
    shpNk->setBorderColor(layout.innerFrame);
    shpNk->lower();
    shpWk->lower();

    Grid* msgBm = shared_.msgBm;
    if (tab() == setupTab) {
        msgBm->setParent(setup_->gridFrame());
        place(msgBm, layout.grid.x(), layout.grid.y(), layout.grid.width(), layout.grid.height());
    } else {
        sstFz->putOn(page, msgBm, layout.grid.x(), layout.grid.y(), layout.grid.width(), layout.grid.height());
    }
    msgBm->show();
    msgBm->setFormatString(layout.gridHeadings);

    shared_.lblXc->setVisible(layout.chooser.has_value());
    shared_.cboBm->setVisible(layout.chooser.has_value());
    if (layout.chooser) {
        const auto& [label, caption, box, width] = *layout.chooser;
        shared_.lblXc->setText(caption);
        sstFz->putOn(page, shared_.lblXc, label.x(), label.y(), box.x() - label.x(), 225);
        sstFz->putOn(page, shared_.cboBm, box.x(), box.y(), width, chooserHeight);
    }
    if (layout.codesLabel) sstFz->putOn(page, shared_.lbl1, layout.codesLabel->x(), layout.codesLabel->y(), 1350, 225);
    shared_.lstBh->setVisible(tab() == editingTab || tab() == transferTab);
    if (tab() == intakeTab) {
        shared_.lstSu->hide();
        sstFz->putOn(page, shared_.lstSu, 5200, 5115, 4015, 1320);
    }
}

// The choice of an album. What fails in between leaves its own control as it was.
void frmSz::takeAlbum() {
    shared_.datBj->setDatabaseName(mekTp::cataloguePath());
    shared_.datBj->setRecordSource(u"SELECT * FROM "_s + state_.albumTable + u" ORDER BY [序号]"_s);
    attempt([&] { shared_.datBj->Refresh(); });
    page().albumChosen();
}

void frmSz::loseAlbum() {
    state_.albumTable.clear();
    state_.targetTable.clear();
    shared_.msgBm->Clear();
    codeButtons_->ycbh();
    shared_.lbl1->setText(u"请先选择图册"_s);
    // Closing it sets its opener free, which the page then takes back.
    if (preview_->isOpen()) attempt([&] { preview_->cmdCgClick(); });
    page().albumLost();
}

void frmSz::closeEvent(QCloseEvent* event) {
    bool leaves = true;
    runHandler(this, [&] { leaves = page().mayLeave(); });
    if (leaves)
        QWidget::closeEvent(event);
    else
        event->ignore();
}

/// Keys reach another page without the pointer entering the strip.
bool frmSz::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && !state_.pageFree &&
        turnsPage(static_cast<QKeyEvent&>(*event), watched == shared_.sstFz->tabBar())) {
        warnBeforeLeaving();
        if (!state_.pageFree) return true;
    }
    return QWidget::eventFilter(watched, event);
}

void frmSz::pointerMoved(int x, int y) {
    if (!state_.pageFree) {
        if (leadsToOtherPage(x, y)) warnBeforeLeaving();
        return;
    }
    const auto hint = captionHint(x, y);
    showHint(hint.value_or(state_.hintText), hint ? captionHintColor : hintColor);
}

void frmSz::showHint(const QString& text, const QColor& color) {
    QLabel* lblTs = shared_.lblTs;
    if (lblTs->text() != text) lblTs->setText(text);
    if (lblTs->palette().color(QPalette::WindowText) == color) return;
    QPalette palette = lblTs->palette();
    palette.setColor(QPalette::WindowText, color);
    lblTs->setPalette(palette);
}

void frmSz::warnBeforeLeaving() {
    // The pointer goes on moving while the box is open.
    if (std::exchange(warning_, true)) return;
    state_.pageFree = ask(this,
                          u"警  告：\n\n在未保存前切换页框或关闭，将造成刚才的操作全部作废！\n\n"
                          "如果一定要切换，按《确定》；否则按《取消》。"_s,
                          BoxIcon::information, u"警 告！！！！"_s);
    warning_ = false;
}
