#include "editor/frm_cl.h"

#include "editor/view_input.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/theme.h"
#include "platform/desktop/tool_icon.h"

#include <QKeyEvent>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int menuHeight = 30;
const auto usualCaption = u"览忆集苑（图片处理）"_s;
}  // namespace

frmCl::frmCl(Windows& windows) : windows_(windows), document_(this) {
    makeForm();
    makeChapters();
    connectDocument();
    connectChapters();
    connectWindows();
    load();
}

// The chapters belong to the form and go with it, before the document that they share.
frmCl::~frmCl() {
    delete takeCentralWidget();
}

void frmCl::makeForm() {
    setObjectName(u"frmCl"_s);
    setWindowTitle(usualCaption);
    setContextMenuPolicy(Qt::NoContextMenu);
    menuBar()->setNativeMenuBar(false);
    menuBar()->setFixedHeight(menuHeight);
    form_ = new QWidget(this);
    form_->setAutoFillBackground(true);
    form_->setFocusPolicy(Qt::ClickFocus);
    setCentralWidget(form_);
}

void frmCl::makeChapters() {
    auto* tlb1 =
        make<ToolBar>(form_, u"tlb1"_s, [](const QString& key) { return toolIcon(key, theme::worn().window); });
    commands_ = new Commands(document_, menuBar(), tlb1, form_);
    view_ = new EditorView(document_, tlb1, form_);
    const Workplace at{document_, *commands_, *view_, form_};
    settings_ = new ViewSettings(at);
    dialog_ = new OperationDialog(view_->viewport(), form_);
    auto* runner = new OperationRunner(at, *dialog_);
    const auto mayGo = [this] { return saving_->mayGo(); };
    auto* msgBm = make<Grid>(form_, u"msgBm"_s);
    chooser_ = new AlbumChooser(at, msgBm, mayGo);
    button_ = new ButtonPicture(at, msgBm);
    saving_ = new Saving(at, *dialog_, *chooser_, *button_);
    new Opening(at, *chooser_, mayGo);
    goingOn_ = new GoingOn(at, *chooser_);
    new TakingBack(at, *dialog_, *runner, *chooser_, *button_);
    new ViewInput(*view_, form_);
}

void frmCl::connectDocument() {
    connect(&document_, &Document::opened, this, &frmCl::showOpened);
    connect(&document_, &Document::closed, this, &frmCl::showNothingOpen);
    connect(&document_, &Document::captionChanged, this, &frmCl::showCaption);
    connect(view_, &EditorView::zoomed, this, &frmCl::showCaption);
    connect(&document_, &Document::stepLost, this, [this](const QString& reason) {
        say(this, u"这一步没有记录下来，以后不能撤消。图片可以继续处理和保存。\n\n"_s + reason);
    });
}

void frmCl::connectChapters() {
    RubberBand& band = view_->band();
    band.setWanted([this]() -> std::optional<SelectionShape> {
        // After another operation the dialog's own is not the one at work.
        if (dialog_->waitsForPart() && document_.operation() == dialog_->operation()) return SelectionShape::free;
        return button_->wantedShape();
    });
    connect(dialog_, &OperationDialog::toggled, &band, &RubberBand::follow);
    connect(button_, &ButtonPicture::changed, &band, &RubberBand::follow);
    connect(&band, &RubberBand::finished, dialog_, &OperationDialog::partDrawn);
    connect(chooser_, &AlbumChooser::opens, dialog_, &OperationDialog::hide);
    connect(chooser_, &AlbumChooser::opens, button_, &ButtonPicture::hide);
    connect(settings_, &ViewSettings::toolBarChanged, this,
            [this] { chooser_->isOpen() ? chooser_->followToolBar() : view_->pmsz(); });
    connect(commands_, &Commands::menuOpens, view_, &EditorView::growShortWindow);
}

void frmCl::connectWindows() {
    commands_->onCommand(u"bz"_s, [this] { windows_.showHelp(u"5使用帮助"_s); });
    commands_->onCommand(u"fh"_s, [this] {
        if (mayLeave()) windows_.handOver(WindowKind::editor, WindowKind::viewer);
    });
    commands_->onCommand(u"tc"_s, [this] {
        if (mayLeave()) windows_.endProgram();
    });
}

void frmCl::load() {
    resize(pixelsFromTwips(leastWindowWidth), pixelsFromTwips(leastWindowHeight));
    showNothingOpen();
    chooser_->load();
    view_->hint().setText(u"操作提示：先打开要处理的图片，再进行其它操作。"_s);
    form_->setFocus();
    QMetaObject::invokeMethod(this, guarded(this, [this] { goingOn_->offer(); }), Qt::QueuedConnection);
}

void frmCl::showCaption() {
    const QString caption = document_.caption();
    setWindowTitle((caption.isEmpty() ? usualCaption : caption) + view_->zoomText());
}

void frmCl::showOpened() {
    dialog_->hide();
    button_->hide();
    view_->hint().tscz(u"w1"_s);
    commands_->showOpened();
}

void frmCl::showNothingOpen() {
    view_->hint().hide();
    settings_->read();
    commands_->showNothingOpen();
    view_->showWelcome();
}

/// The steps go with the picture; nobody is asked a second time about changes that he has given up.
bool frmCl::mayLeave() {
    if (!saving_->mayGo()) return false;
    document_.keep();
    attempt([&] { document_.clearSteps(); });
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
        dialog_->press(enter);
        return true;
    }
    if (escape && chooser_->isOpen()) {
        chooser_->cmdQxClick();
        return true;
    }
    const QString key = commandOf(event);
    if (key.isEmpty()) return false;
    commands_->press(key);
    return true;
}

/// The key of the tool button that a key of the keyboard presses.
QString frmCl::commandOf(const QKeyEvent& event) const {
    static const QHash<QKeyCombination, QString> anywhere{
        {Qt::CTRL | Qt::Key_O, u"wk"_s}, {Qt::CTRL | Qt::Key_S, u"bc"_s}, {Qt::CTRL | Qt::SHIFT | Qt::Key_S, u"lc"_s}};
    static const QHash<QKeyCombination, QString> stepping{
        {Qt::Key_Home, u"ty"_s}, {Qt::Key_PageUp, u"sy"_s}, {Qt::Key_PageDown, u"xy"_s}, {Qt::Key_End, u"hy"_s}};
    const QKeyCombination pressed(event.modifiers() & ~Qt::KeypadModifier, Qt::Key(event.key()));
    if (anywhere.contains(pressed)) return anywhere[pressed];
    if (chooser_->isOpen()) return {};
    if (event.matches(QKeySequence::Undo)) return u"cx"_s;
    // Paging must not carry away a picture that somebody is at work on.
    return document_.state() == EditState::fromAlbum && !dialog_->isOpen() ? stepping.value(pressed) : QString();
}
