#include "settings/backup/picture_chooser.h"

#include "catalogue/album_directory.h"
#include "catalogue/album_rules.h"
#include "catalogue/album_tables.h"
#include "platform/base/error.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/picture/picture.h"
#include "platform/picture/preview.h"

#include <QAbstractListModel>
#include <QCache>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr QSize usualSize(860, 560), small(112, 84), cell(132, 116);
constexpr int buttonWidth = 90, albumsWidth = 220, mostInMemory = 500;
}  // namespace

/// The pictures of one album. A small one is made when it is shown.
class PictureChooser::Pictures : public QAbstractListModel {
  public:
    using QAbstractListModel::QAbstractListModel;

    void show(const Database& backup, const QString& table) {
        beginResetModel();
        cache_.clear();
        rows_ = {};
        if (!table.isEmpty()) attempt([&] { rows_ = backup.OpenRecordset(allRecordsSql(table, u"序号"_s)); });
        endResetModel();
    }

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() || rows_.isNothing() ? 0 : rows_.rowCount();
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role == Qt::DisplayRole) return number(index.row());
        if (role == Qt::ToolTipRole) return rows_.valueAt(index.row(), u"备注"_s).textOr();
        if (role == Qt::DecorationRole) return picture(index.row());
        if (role == Qt::SizeHintRole) return cell;
        return {};
    }
    QString number(int row) const {
        QString text;
        attempt([&] { text = rows_.valueAt(row, u"序号"_s).textOr(); });
        return text;
    }

  private:
    QImage picture(int row) const {
        if (const QImage* kept = cache_.object(row)) return *kept;
        QImage shown;
        attempt([&] {
            const StoredValue value = rows_.storedAt(row, u"图片"_s);
            Picture found = LoadPreview(value.read(0, previewReach));
            if (found.isNull()) found = LoadPicture(value.read(0, value.size()), QString(), small);
            shown = found.image().scaled(small, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        });
        if (shown.isNull()) {
            shown = QImage(small, QImage::Format_RGB32);
            shown.fill(Qt::lightGray);
        }
        cache_.insert(row, new QImage(shown));
        return shown;
    }

    Recordset rows_;
    mutable QCache<int, QImage> cache_{mostInMemory};
};

PictureChooser::PictureChooser(QWidget* parent, const QString& backup)
    : QDialog(parent), backup_(OpenDatabase(backup)), pictures_(new Pictures(this)) {
    setObjectName(u"frmQh"_s);
    setWindowTitle(u" 从备份取回"_s);
    setWindowModality(Qt::WindowModal);
    setAttribute(Qt::WA_DeleteOnClose);
    makeControls();
    resize(usualSize);
    listAlbums();
    lstTc->setFocus();
}

PictureChooser::~PictureChooser() = default;

void PictureChooser::makeControls() {
    auto* lines = new QVBoxLayout(this);
    auto* lists = new QHBoxLayout;
    lstTc = make<QListWidget>(this, u"lstTc"_s);
    lstTc->setAccessibleName(u"备份中的图册"_s);
    lstTc->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lstTc->setFixedWidth(albumsWidth);
    lstTp = make<QListView>(this, u"lstTp"_s);
    lstTp->setAccessibleName(u"图册中的图片"_s);
    lstTp->setModel(pictures_);
    lstTp->setViewMode(QListView::IconMode);
    lstTp->setMovement(QListView::Static);
    lstTp->setResizeMode(QListView::Adjust);
    lstTp->setUniformItemSizes(true);
    lstTp->setIconSize(small);
    lstTp->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lists->addWidget(lstTc);
    lists->addWidget(lstTp, 1);
    lines->addLayout(lists, 1);
    auto* row = new QHBoxLayout;
    lblQh = make<QLabel>(this, u"lblQh"_s);
    cmdQh = make<QPushButton>(this, u"cmdQh"_s, u"取 回"_s);
    cmdGb = make<QPushButton>(this, u"cmdGb"_s, u"关 闭"_s);
    for (QPushButton* button : {cmdQh, cmdGb}) button->setMinimumWidth(buttonWidth);
    row->addWidget(lblQh, 1);
    row->addWidget(cmdQh);
    row->addWidget(cmdGb);
    lines->addLayout(row);
    cmdQh->setDefault(true);
    connect(lstTc, &QListWidget::itemSelectionChanged, this, [this] { albumsMarked(); });
    connect(lstTp->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { showCount(); });
    connect(cmdQh, &QPushButton::clicked, this, guarded(this, [this] { takeBackChosen(); }));
    connect(cmdGb, &QPushButton::clicked, this, &QDialog::close);
}

/// The album that is only for show takes nothing in.
void PictureChooser::listAlbums() {
    for (const Album& album : allAlbums(backup_)) {
        if (isDemo(album.table) || !isAlbumTable(backup_, album.table)) continue;
        int count = 0;
        attempt([&] { count = backup_.OpenRecordset(album.table).rowCount(); });
        auto* line = new QListWidgetItem(u"%1（%2）"_s.arg(album.title).arg(count), lstTc);
        line->setData(Qt::UserRole, album.table);
    }
    if (lstTc->count() > 0) lstTc->setCurrentRow(0);
    showCount();
}

QStringList PictureChooser::markedAlbums() const {
    QStringList tables;
    for (const QListWidgetItem* line : lstTc->selectedItems()) tables << line->data(Qt::UserRole).toString();
    return tables;
}

/// Pictures are shown of one album alone.
void PictureChooser::albumsMarked() {
    const QStringList tables = markedAlbums();
    pictures_->show(backup_, tables.size() == 1 ? tables.first() : QString());
    showCount();
}

void PictureChooser::showCount() {
    const qsizetype albums = markedAlbums().size(), pictures = lstTp->selectionModel()->selectedRows().size();
    cmdQh->setEnabled(albums > 0);
    lblQh->setText(albums == 0    ? u"请选择图册。"_s
                   : pictures > 0 ? u"取回选中的 %1 张图片。"_s.arg(pictures)
                   : albums == 1  ? u"取回整个图册；要取回其中几张，请在右边选中。"_s
                                  : u"取回选中的 %1 个图册。"_s.arg(albums));
}

QList<Return> PictureChooser::choice() const {
    QList<Return> returns;
    const QModelIndexList pictures = lstTp->selectionModel()->selectedRows();
    for (const QString& table : markedAlbums()) {
        if (pictures.isEmpty()) {
            returns << wholeAlbum(backup_, table);
            continue;
        }
        Return some{table, {}};
        for (const QModelIndex& index : pictures) some.numbers << pictures_->number(index.row());
        some.numbers.removeAll(QString());
        returns << some;
    }
    return returns;
}

void PictureChooser::takeBackChosen() {
    const QList<Return> returns = choice();
    if (returns.isEmpty()) return;
    close();
    Q_EMIT chosen(returns);
}
