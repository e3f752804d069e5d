#include "help/frm_bz.h"

#include "catalogue/mektp.h"
#include "catalogue/settings_row.h"
#include "help/contents_panel.h"
#include "help/contents_rules.h"
#include "help/find_bar.h"
#include "help/manual_colours.h"
#include "help/picture_show.h"
#include "help/raised_buttons.h"
#include "platform/base/error.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/theme.h"
#include "windows/window_place.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int windowWidth = 9600;
constexpr int windowHeight = 7200;
constexpr double readingTextSize = 10.5;  // points: the reader may zoom
constexpr int listIndent = 24;            // pixels
constexpr int gripSide = 240;

// Texts near the end of the manual.
const QString endMarker = u"邮编："_s;
const QString endMarkerOfFullCaptions = u"邮编"_s;
const QString endRule = u"－－－－－－"_s;
const QString title = u"《览忆集苑》"_s;
}  // namespace

frmBz::frmBz(Windows& windows, QWidget* parent) : QWidget(parent), windows_(windows) {
    setObjectName(u"frmBz"_s);
    setWindowTitle(u" 览忆集苑（帮助）"_s);
    setMouseTracking(true);
    setMinimumSize(rectFromTwips(0, 0, windowWidth * 3 / 4, windowHeight / 2).size());
    contents_ = new ContentsPanel(this);
    fraAn = make<RaisedButtons>(this, u"fraAn"_s);
    rtfBz = make<RichTextBox>(this, u"rtfBz"_s);
    search_ = new FindBar(rtfBz, this);
    grip_ = new QSizeGrip(this);
    show_ = new PictureShow(this);
    rtfBz->setAccessibleName(u"使用说明"_s);
    connectEvents();
    load();
    resize(rectFromTwips(0, 0, windowWidth, windowHeight).size());
    new RememberedSize(this);
}

void frmBz::connectEvents() {
    connect(contents_, &ContentsPanel::captionChosen, this, &frmBz::showTopic);
    connect(contents_, &ContentsPanel::fullCaptionChosen, this,
            [this](const QString& caption) { jump(endMarkerOfFullCaptions, caption); });
    connect(contents_, &ContentsPanel::topChosen, this, [this] { jump(endRule, title); });
    connect(rtfBz->verticalScrollBar(), &QScrollBar::valueChanged, this, &frmBz::markChapter);
    connect(rtfBz, &RichTextBox::pictureChosen, this,
            [this](const QImage& picture, const QString& name) { show_->open(Picture(picture), name); });
    connect(fraAn, &RaisedButtons::backClicked, this, guarded(this, [this] {
                windows_.show(WindowKind::viewer);
                windows_.unload(WindowKind::help);
            }));
    connect(fraAn, &RaisedButtons::endClicked, this, guarded(this, [this] { windows_.endProgram(); }));
}

void frmBz::load() {
    mekTp::catalogue = OpenDatabase(mekTp::cataloguePath());
    const Recordset settings = settingsRow();
    rtfBz->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    rtfBz->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    QFont reading = font();
    reading.setPointSizeF(readingTextSize);
    rtfBz->setFont(reading);
    rtfBz->document()->setDocumentMargin(18);
    rtfBz->document()->setIndentWidth(listIndent);
    manual_ = settings.Fields(u"帮助"_s).Value().textOr();
    showManual();
    rtfBz->setFocus();
}

void frmBz::showManual() {
    ground_ = theme::worn().base;
    {
        const QScopedValueRollback moving(isMoving_, true);
        rtfBz->showText(inWornColours(manual_));
    }
    findChapters();
    markChapter();
}

void frmBz::findChapters() {
    starts_.clear();
    for (const QString& caption : chapterCaptions()) {
        const QTextCursor start = rtfBz->document()->find(caption);
        starts_.push_back(start.isNull() ? -1 : start.selectionStart());
    }
}

void frmBz::markChapter() {
    if (!isMoving_) contents_->markChapter(chapterAt(starts_, rtfBz->topPosition()));
}

void frmBz::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && ground_.isValid() && ground_ != theme::worn().base) wearColours();
}

void frmBz::wearColours() {
    showManual();
    contents_->wearColours();
    fraAn->wearColours();
}

void frmBz::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const int width = widthOf(this);
    const int height = heightOf(this);
    place(rtfBz, 3370, 90, width - 3600, height - 615);
    place(fraAn, 150, height - 1080, 3070, 450);
    place(search_, 3370, height - 450, width - gripSide - 3370, 345);
    place(grip_, width - gripSide, height - gripSide, gripSide, gripSide);
    contents_->layOut(height);
}

/// Closed, the window is gone, as with any other way of leaving it.
void frmBz::closeEvent(QCloseEvent* event) {
    event->accept();
    windows_.unload(WindowKind::help);
}

void frmBz::mouseMoveEvent(QMouseEvent* event) {
    QWidget::mouseMoveEvent(event);
    contents_->rest();
    fraAn->hideFrames();
}

void frmBz::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else if (event->matches(QKeySequence::Find))
        search_->takeFocus();
    else
        QWidget::keyPressEvent(event);
}

void frmBz::showTopic(const QString& topic) {
    jump(endMarker, topic);
}

void frmBz::jump(const QString& marker, const QString& text) {
    {
        const QScopedValueRollback moving(isMoving_, true);
        rtfBz->Find(marker, 0);
        rtfBz->Find(text, 0);
        rtfBz->setSelLength(0);
    }
    markChapter();
}
