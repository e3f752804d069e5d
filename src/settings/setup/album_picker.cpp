#include "settings/setup/album_picker.h"

#include "catalogue/album_directory.h"
#include "platform/desktop/tab_control.h"
#include "platform/desktop/text_box.h"

#include <QMouseEvent>

AlbumPicker::AlbumPicker(ChoiceList& list, TabControl* sstFz, QWidget* frame, TextBox* box)
    : QObject(frame), list_(list), frame_(frame), box_(box) {
    frame->setMouseTracking(true);
    frame->installEventFilter(this);
    connect(&list, &ChoiceList::lineClicked, this, &AlbumPicker::choose);
    connect(sstFz, &QTabWidget::currentChanged, this, &AlbumPicker::close);
    connect(box, &TextBox::lostFocus, this, &AlbumPicker::close);
}

void AlbumPicker::open(const std::vector<Album>& albums) {
    QStringList tables, titles;
    for (const Album& album : albums) {
        tables << album.table;
        titles << album.title;
    }
    if (!tables.isEmpty()) list_.openOver(box_, tables, titles);
}

void AlbumPicker::choose(const QString& table) {
    if (!list_.isOpen()) return;
    close();
    Q_EMIT picked(table);
}

bool AlbumPicker::eventFilter(QObject* watched, QEvent* event) {
    if (list_.isOpen() && watched == frame_ && event->type() == QEvent::MouseMove &&
        !list_.covers(static_cast<QMouseEvent*>(event)->position().toPoint()))
        close();
    return QObject::eventFilter(watched, event);
}
