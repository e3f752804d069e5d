#include "windows/picture_offer.h"

#include <QBuffer>
#include <QClipboard>
#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QShortcut>
#include <QUrl>
#include <QWidget>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The bytes as the other program has them lose nothing: neither quality nor what the photograph tells.
const QStringList wholePictures{u"image/jpeg"_s, u"image/png"_s,  u"image/webp"_s, u"image/avif"_s,
                                u"image/heic"_s, u"image/tiff"_s, u"image/gif"_s,  u"image/bmp"_s};

QByteArray pictureIn(const QMimeData& data) {
    for (const QString& kind : wholePictures)
        if (const QByteArray bytes = data.data(kind); !bytes.isEmpty()) return bytes;
    const auto image = qvariant_cast<QImage>(data.imageData());
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!image.isNull()) image.save(&buffer, "png");
    return bytes;
}

QString nameIn(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    return urls.isEmpty() ? QString() : QFileInfo(urls.front().fileName()).completeBaseName();
}

/// Asked while the pointer moves: nothing is copied.
bool mayHold(const QMimeData& data) {
    return data.hasImage() || data.hasUrls();
}

}  // namespace

PictureOffer offerIn(const QMimeData& data) {
    PictureOffer offer;
    for (const QUrl& url : data.urls())
        if (url.isLocalFile()) offer.paths << QDir::cleanPath(url.toLocalFile());
    if (!offer.paths.isEmpty()) return offer;
    offer.picture = pictureIn(data);
    offer.name = nameIn(data);
    return offer;
}

OfferTaker::OfferTaker(QWidget* window) : QObject(window) {
    window->setAcceptDrops(true);
    window->installEventFilter(this);
    connect(new QShortcut(QKeySequence::Paste, window), &QShortcut::activated, this, &OfferTaker::paste);
}

void OfferTaker::paste() {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    if (data == nullptr || !takes()) return;
    if (const PictureOffer offer = offerIn(*data); !offer.isEmpty()) Q_EMIT offered(offer);
}

bool OfferTaker::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::DragEnter) {
        auto& enter = static_cast<QDropEvent&>(*event);
        if (takes() && mayHold(*enter.mimeData())) enter.acceptProposedAction();
        return true;
    }
    if (event->type() != QEvent::Drop) return QObject::eventFilter(watched, event);
    auto& drop = static_cast<QDropEvent&>(*event);
    drop.setDropAction(Qt::CopyAction);
    drop.accept();
    // A question may take longer than the other program should wait.
    QMetaObject::invokeMethod(
        this,
        [this, offer = offerIn(*drop.mimeData())] {
            if (!offer.isEmpty() && takes()) Q_EMIT offered(offer);
        },
        Qt::QueuedConnection);
    return true;
}
