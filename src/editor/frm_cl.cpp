#include "editor/frm_cl.h"

#include "editor/editor_layout.h"
#include "editor/editor_texts.h"
#include "platform/base/error.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"

#include <QKeyEvent>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int menuHeight = 30;
constexpr int firstWindowWidth = 9600;
}  // namespace

frmCl::frmCl(Windows& windows) : windows_(windows) {
    setObjectName(u"frmCl"_s);
    setWindowTitle(editorCaption);
    setContextMenuPolicy(Qt::NoContextMenu);
    menuBar()->setNativeMenuBar(false);
    menuBar()->setFixedHeight(menuHeight);
    form_ = new QWidget(this);
    form_->setAutoFillBackground(true);
    form_->setFocusPolicy(Qt::ClickFocus);
    setCentralWidget(form_);

    commands_ = new Commands(state_, menuBar(), form_);
    view_ = new EditorView(state_, commands_->tlb1, this, form_);
    settings_ = new ViewSettings(state_, *commands_, *view_);
    dialog_ = new OperationDialog(state_, *commands_, *view_);
    history_ = new UndoHistory(state_, *commands_, *view_, *dialog_);
    loading_ = new Loading(state_, *commands_, *view_, *settings_, *history_, this);
    transforms_ = new Transforms(state_, *commands_, *view_, *dialog_, *history_);
    chooser_ = new AlbumChooser(state_, *commands_, *view_, *history_, *loading_, form_);
    button_ = new ButtonPicture(state_, *commands_, *view_, *history_, *chooser_, form_);
    crop_ = new CropTool(state_, *commands_, *view_, *dialog_, *button_);
    saving_ = new Saving(state_, *commands_, *view_, *dialog_, *history_, *chooser_, form_);

    loading_->mayReplace = [this] { return saving_->mayGo(); };

    connectCommands();
    connectWindows();
    load();
}

// The chapters stand on the form and go with it, before the state that they share.
frmCl::~frmCl() {
    delete takeCentralWidget();
}

void frmCl::load() {
    resize(pixelsFromTwips(firstWindowWidth), pixelsFromTwips(leastWindowHeight));
    loading_->pmfy();
    view_->pmsz();
    chooser_->load();
    view_->txtTs->setText(u"操作提示：先打开要处理的图片，再进行其它操作。"_s);
    form_->setFocus();
}

void frmCl::connectCommands() {
    Commands& on = *commands_;
    on.onCommand(on.mnuCw, u"wk"_s, [this] { loading_->mnuCwClick(); });
    on.onCommand(on.mnuCs, u"sk"_s, [this] { chooser_->mnuCsClick(); });
    on.onCommand(on.mnuTy, u"ty"_s, [this] { chooser_->tpqh(u't'); });
    on.onCommand(on.mnuSy, u"sy"_s, [this] { chooser_->tpqh(u's'); });
    on.onCommand(on.mnuXy, u"xy"_s, [this] { chooser_->tpqh(u'x'); });
    on.onCommand(on.mnuHy, u"hy"_s, [this] { chooser_->tpqh(u'h'); });
    on.onCommand(on.mnuSf, u"sf"_s, [this] { transforms_->mnuSfClick(); });
    on.onCommand(on.mnuCj, u"cj"_s, [this] { crop_->mnuCjClick(); });
    on.onCommand(on.mnuXz, u"xz"_s, [this] { transforms_->mnuXzClick(); });
    on.onCommand(on.mnuFs, u"fs"_s, [this] { transforms_->mnuFsClick(); });
    on.onCommand(on.mnuFc, u"fc"_s, [this] { transforms_->mnuFcClick(); });
    on.onCommand(on.mnuAt, u"at"_s, [this] { button_->mnuAtClick(); });
    on.onCommand(on.mnuBc, u"bc"_s, [this] { saving_->mnuBcClick(); });
    on.onCommand(on.mnuLc, u"lc"_s, [this] { saving_->mnuLcClick(); });
    on.onCommand(on.mnuCx, u"cx"_s, [this] { history_->mnuCxClick(); });
    on.onCommand(on.mnuTg, u"ts"_s, [this] { settings_->mnuTgClick(); });
    on.onCommand(on.mnuGx, u"gj"_s, [this] { settings_->mnuGxClick(); });
    connect(&on, &Commands::menuOpens, view_, &EditorView::growShortWindow);
    connect(dialog_, &OperationDialog::cancelled, history_, &UndoHistory::mnuCxClick);
}

void frmCl::connectWindows() {
    Commands& on = *commands_;
    on.onCommand(on.mnuBz, u"bz"_s, [this] { windows_.showHelp(u"5使用帮助"_s); });
    on.onCommand(on.mnuFh, u"fh"_s, [this] {
        if (mayLeave()) windows_.handOver(WindowKind::editor, WindowKind::viewer);
    });
    on.onCommand(on.mnuGb, u"tc"_s, [this] {
        if (mayLeave()) windows_.endProgram();
    });
}

/// The steps go with the picture; nobody is asked a second time about changes that he has given up.
bool frmCl::mayLeave() {
    if (!saving_->mayGo()) return false;
    state_.forgetChanges();
    attempt([&] { history_->clear(); });
    return true;
}

void frmCl::closeEvent(QCloseEvent* event) {
    event->ignore();
    runHandler(this, [&] { event->setAccepted(mayLeave()); });
}

void frmCl::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    view_->resized();
}

void frmCl::keyPressEvent(QKeyEvent* event) {
    if (!runKey(*event)) QMainWindow::keyPressEvent(event);
}

/// Keys that no control has taken. They do what the button does, where that is enabled.
bool frmCl::runKey(const QKeyEvent& event) {
    const bool enter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    const bool escape = event.key() == Qt::Key_Escape;
    if (dialog_->isOpen() && (enter || escape)) {
        dialog_->cmdCq[enter ? 0 : 1]->click();
        return true;
    }
    if (escape && !view_->picCs->isHidden()) {
        chooser_->cmdQxClick();
        return true;
    }
    const QString key = commandOf(event);
    if (key.isEmpty()) return false;
    commands_->tlb1->button(key)->click();
    return true;
}

/// The key of the tool button that a key of the keyboard stands for.
QString frmCl::commandOf(const QKeyEvent& event) const {
    static const QHash<QKeyCombination, QString> anywhere{
        {Qt::CTRL | Qt::Key_O, u"wk"_s}, {Qt::CTRL | Qt::Key_S, u"bc"_s}, {Qt::CTRL | Qt::SHIFT | Qt::Key_S, u"lc"_s}};
    static const QHash<QKeyCombination, QString> stepping{
        {Qt::Key_Home, u"ty"_s}, {Qt::Key_PageUp, u"sy"_s}, {Qt::Key_PageDown, u"xy"_s}, {Qt::Key_End, u"hy"_s}};
    const QKeyCombination pressed(event.modifiers() & ~Qt::KeypadModifier, Qt::Key(event.key()));
    if (anywhere.contains(pressed)) return anywhere[pressed];
    if (!view_->picCs->isHidden()) return {};
    if (event.matches(QKeySequence::Undo)) return u"cx"_s;
    // Paging must not carry away a picture that somebody is at work on.
    return state_.editState == u"k1" && !dialog_->isOpen() ? stepping.value(pressed) : QString();
}
