#include "editor/loading.h"

#include "editor/editor_texts.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/file_dialogs.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int welcomeWidth = 9450;
constexpr int welcomeHeight = 6140;
constexpr int jpegFilter = 2;

/// Puts the chooser back on screen, unless another picture has taken its place.
class ChooserAside {
  public:
    explicit ChooserAside(QWidget* chooser) : chooser_(chooser), wasOpen_(!chooser->isHidden()) { chooser->hide(); }
    ~ChooserAside() { chooser_->setVisible(wasOpen_); }
    void leaveClosed() { wasOpen_ = false; }
    ChooserAside(const ChooserAside&) = delete;
    ChooserAside& operator=(const ChooserAside&) = delete;

  private:
    QWidget* chooser_;
    bool wasOpen_;
};

}  // namespace

Loading::Loading(EditorState& state, Commands& commands, EditorView& view, ViewSettings& settings, UndoHistory& history,
                 QWidget* window)
    : QObject(&view),
      state_(state),
      commands_(commands),
      view_(view),
      settings_(settings),
      history_(history),
      window_(window) {
    connect(&history_, &UndoHistory::emptied, this, &Loading::empty);
}

void Loading::mnuCwClick() {
    ChooserAside chooser(view_.picCs);
    const QString path = askOpenFile(window_, u"打开图片文件  （选中后按“打开”，放弃选择按“取消”）"_s,
                                     u"BMP文件|*.bmp|JPG文件|*.jpg|所有文件|*.*"_s, {}, jpegFilter);
    if (path.isEmpty() || !mayReplace()) return;
    openFile(path);
    chooser.leaveClosed();
}

/// A file that cannot be read leaves everything as it was.
void Loading::openFile(const QString& path) {
    const Hourglass hourglass;
    const Picture picture = LoadPicture(path);
    const qint64 size = FileLen(path);
    takeLoaded(picture);
    state_.sourceFile = path;
    state_.sourceLine = fileSourceLine(path, size, {picture.Width(), picture.Height()});
    state_.editState = u"w"_s;
    attempt([&] { history_.clear(); });
    xstp();
    commands_.mnuQh->setVisible(false);
}

void Loading::openFromAlbum(const Picture& picture, const QString& sourceLine) {
    takeLoaded(picture);
    view_.picCs->hide();
    state_.sourceFile.clear();
    state_.sourceLine = sourceLine;
    state_.editState = u"k"_s;
    xstp();
    commands_.mnuQh->setVisible(true);
}

void Loading::takeLoaded(const Picture& picture) {
    state_.undoing = false;  // else the picture would get no trail of its own
    state_.isTakenBack = false;
    view_.picMb->setPicture({});  // the picture before is not needed any more
    view_.setWorkingPicture(picture.image());
    state_.picWidth = pictureTwips(picture.Width(), picture.pixels().width());
    state_.picHeight = pictureTwips(picture.Height(), picture.pixels().height());
}

/// What follows every load.
void Loading::xstp() {
    view_.picGd->show();
    view_.picYu->show();
    for (QWidget* panel : {static_cast<QWidget*>(view_.picMb), static_cast<QWidget*>(view_.picCq),
                           static_cast<QWidget*>(view_.picAn), static_cast<QWidget*>(view_.txtCc)})
        panel->hide();
    state_.picLeft = state_.picTop = 0;
    state_.editState = state_.editState.left(1) + u'1';
    state_.opTag.clear();
    state_.isOpen = true;
    view_.img1->hide();
    view_.pmsz();
    history_.start();
    view_.tscz(u"w1"_s);
    view_.setCaption(state_.sourceLine);
    commands_.showPictureMenus();
    commands_.mnuQh->setVisible(state_.stepTrail.isFromAlbum());
    commands_.setEnabled(commands_.mnuBc, u"bc"_s, false);
    commands_.szan(true);
    for (const QString& key : {u"lc"_s, u"cx"_s}) commands_.tlb1->setEnabled(key, true);
}

/// The empty editor.
void Loading::pmfy() {
    state_.editState = u"00"_s;
    state_.isOpen = false;
    view_.txtTs->hide();
    settings_.read();
    state_.picWidth = welcomeWidth;
    state_.picHeight = welcomeHeight - state_.toolbarHeight;
    view_.setWorkingPicture({});
    view_.picMb->setPicture({});
    view_.img1->show();
    view_.picYu->show();
    view_.setCaption(editorCaption);
    commands_.szan(false);
    commands_.mnuQh->setVisible(false);
    commands_.setEnabled(commands_.mnuBc, u"bc"_s, false);
    for (const QString& key : {u"lc"_s, u"cx"_s}) commands_.tlb1->setEnabled(key, false);
}

/// The load itself was taken back.
void Loading::empty() {
    pmfy();
    view_.pmsz();
    commands_.setEnabled(commands_.mnuCx, u"cx"_s, false);
}
