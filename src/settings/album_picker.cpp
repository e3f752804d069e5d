#include "settings/album_picker.h"

#include "platform/desktop/list_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/tab_control.h"
#include "platform/desktop/text_box.h"
#include "settings/album_changes.h"

#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>

namespace {
// Twips.
constexpr int lineHeight = 180, frameHeight = 60, listWidth = 600;
constexpr int highestTop = 240;
const QColor green(0, 255, 0);
}  // namespace

AlbumPicker::AlbumPicker(SharedControls& controls, QWidget* frame, TextBox* box)
    : QObject(frame), controls_(controls), frame_(frame), box_(box) {
    frame->setMouseTracking(true);
    frame->installEventFilter(this);
    connect(controls.lstBh, &ListBox::lineClicked, this, &AlbumPicker::lineClicked);
    connect(controls.sstFz, &QTabWidget::currentChanged, this, &AlbumPicker::close);
    connect(box, &TextBox::lostFocus, this, &AlbumPicker::close);
}

void AlbumPicker::open(const std::vector<Album>& albums) {
    if (albums.empty()) return;
    ListBox* lstBh = controls_.lstBh;
    if (!open_) borrow();
    lstBh->clear();
    for (const Album& album : albums) {
        lstBh->AddItem(album.table);
        QListWidgetItem* line = lstBh->item(lstBh->count() - 1);
        line->setSizeHint({0, pixelsFromTwips(lineHeight)});
        line->setToolTip(album.title);
    }
    lstBh->setCurrentRow(-1);
    placeOverBox(lstBh->count());
    lstBh->show();
    lstBh->raise();
}

void AlbumPicker::borrow() {
    ListBox* lstBh = controls_.lstBh;
    home_ = lstBh->parentWidget();
    place_ = lstBh->geometry();
    palette_ = lstBh->palette();
    font_ = lstBh->font();
    focus_ = lstBh->focusPolicy();
    columns_ = lstBh->columns();
    enabled_ = lstBh->isEnabled();
    open_ = true;

    lstBh->setParent(frame_);
    lstBh->setColumns(1);
    lstBh->setEnabled(true);
    lstBh->setFocusPolicy(Qt::NoFocus);  // the box goes on being typed into
    QPalette colours = palette_;
    colours.setColor(QPalette::Base, green);
    lstBh->setPalette(colours);
    // The ground of a list follows the program's style sheet, not its palette.
    lstBh->setStyleSheet(QStringLiteral("QListView { background: %1; }").arg(green.name()));
    QFont small = font_;
    small.setPixelSize(pixelsFromTwips(lineHeight) - 1);
    lstBh->setFont(small);
}

void AlbumPicker::placeOverBox(int lines) {
    const int room = topOf(box_) - highestTop;
    const int whole = lines * lineHeight + frameHeight;
    const int height = std::min(whole, room);
    // A scroll bar stands beside the names, not on them.
    const int bar = whole > room ? twipsFromPixels(controls_.lstBh->verticalScrollBar()->sizeHint().width()) : 0;
    place(controls_.lstBh, leftOf(box_), topOf(box_) - height, listWidth + bar, height);
}

void AlbumPicker::close() {
    if (!open_) return;
    open_ = false;
    ListBox* lstBh = controls_.lstBh;
    lstBh->hide();
    lstBh->clear();
    lstBh->setParent(home_);
    lstBh->setGeometry(place_);
    lstBh->setStyleSheet(QString());
    lstBh->setPalette(palette_);
    lstBh->setFont(font_);
    lstBh->setFocusPolicy(focus_);
    lstBh->setColumns(columns_);
    lstBh->setEnabled(enabled_);
}

void AlbumPicker::lineClicked(int index) {
    if (!open_) return;
    const QString table = controls_.lstBh->List(index);
    close();
    Q_EMIT picked(table);
}

bool AlbumPicker::eventFilter(QObject* watched, QEvent* event) {
    if (open_ && watched == frame_ && event->type() == QEvent::MouseMove) {
        const QPoint at = static_cast<QMouseEvent*>(event)->position().toPoint();
        if (!controls_.lstBh->geometry().contains(at)) close();
    }
    return QObject::eventFilter(watched, event);
}
