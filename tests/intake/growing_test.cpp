#include "transfer_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// All controls that a person sees, in front of the page or on it; not the insides of a control.
QList<QWidget*> controlsOf(const SettingsWindow& window) {
    QList<QWidget*> shown;
    for (auto* control : window.form->findChildren<QWidget*>()) {
        const bool isInside = control->objectName().isEmpty() || control->objectName().startsWith(u"qt_");
        if (control->isVisible() && !isInside && !control->objectName().startsWith(u"shp")) shown << control;
    }
    return shown;
}

QString pathOf(const QWidget* control) {
    const QString name = control->objectName();
    return control->parentWidget() == nullptr ? name : pathOf(control->parentWidget()) + u'.' + name;
}

QMap<QString, QRect> placesOf(const SettingsWindow& window) {
    QMap<QString, QRect> places;
    for (const QWidget* control : controlsOf(window)) places[pathOf(control)] = control->geometry();
    return places;
}

QSet<QString> overlapsOf(const SettingsWindow& window) {
    QSet<QString> pairs;
    const QList<QWidget*> shown = controlsOf(window);
    for (const QWidget* one : shown)
        for (const QWidget* other : shown)
            if (one < other && one->parentWidget() == other->parentWidget() &&
                one->geometry().intersects(other->geometry()))
                pairs << pathOf(one) + u" / "_s + pathOf(other);
    return pairs;
}

QSet<QString> outsideOf(const SettingsWindow& window) {
    QSet<QString> outside;
    for (const QWidget* control : controlsOf(window))
        if (!control->parentWidget()->rect().contains(control->geometry())) outside << pathOf(control);
    return outside;
}

class TestGrowingPages : public QObject {
    Q_OBJECT

    /// In windows that are larger, the content has at least this much of what was gained, in width and height, and
    /// nothing comes to stand on another control or outside its ground. Back in the smallest window all is as before.
    static void expectGrowth(const SettingsWindow& window, const char* state,
                             const QList<std::tuple<QString, double, double>>& content) {
        window.form->resize(640, 480);
        const auto sizeOf = [&](const QString& name) { return window.get<QWidget>(name).size(); };
        const auto before = placesOf(window);
        QMap<QString, QSize> sizes;
        for (const auto& part : content) sizes[std::get<0>(part)] = sizeOf(std::get<0>(part));
        const auto overlaps = overlapsOf(window), outside = outsideOf(window);
        for (const QSize& size : {QSize(1024, 560), QSize(1280, 900), QSize(1920, 1050)}) {
            window.form->resize(size);
            QCoreApplication::processEvents();
            QVERIFY2((overlapsOf(window) - overlaps).isEmpty(),
                     qPrintable(QString::fromLatin1(state) + (overlapsOf(window) - overlaps).values().join(u'\n')));
            QVERIFY2((outsideOf(window) - outside).isEmpty(),
                     qPrintable(QString::fromLatin1(state) + (outsideOf(window) - outside).values().join(u'\n')));
            for (const auto& [name, wide, high] : content) {
                const QSize gained = sizeOf(name) - sizes[name];
                const bool isEnough = gained.width() >= int((size.width() - 640) * wide) - 1 &&
                                      gained.height() >= int((size.height() - 480) * high) - 1;
                QVERIFY2(isEnough, qPrintable(QString::fromLatin1(state) + u": "_s + name));
            }
        }
        window.form->resize(640, 480);
        const auto after = placesOf(window);
        for (auto place = before.begin(); place != before.end(); ++place)
            QVERIFY2(after[place.key()] == place.value(), qPrintable(QString::fromLatin1(state) + place.key()));
    }

  private Q_SLOTS:
    void setupPage() {
        TransferWindow window;
        window.tabs().setCurrentIndex(0);
        expectGrowth(window, "setup", {{u"msgBm"_s, 0.6, 1}, {u"txtBz"_s, 0.3, 0}, {u"lblTs"_s, 1, 0}});
        window.clickRow(0);
        window.click(u"cmdCk(4)"_s);
        expectGrowth(window, "preview", {{u"imgWj"_s, 0, 0}, {u"shpWj"_s, 0.6, 1}});
    }

    void intakePage() {
        TransferWindow window;
        window.tabs().setCurrentIndex(1);
        window.addAll({u"1.jpg"_s, u"2.jpg"_s});
        window.addSourceAlbum(u"tc01"_s, 1, 1);
        expectGrowth(window, "fresh", {{u"msgBm"_s, 0.5, 1}, {u"dir1"_s, 0.5, 0.3}});
        window.prepare(u"tc01"_s, 1);
        expectGrowth(window, "files", {{u"msgBm"_s, 0.5, 1}, {u"dir1"_s, 0.5, 0.5}, {u"fil1"_s, 0.5, 0.5}});
        window.clickFile(u"1.jpg"_s);
        window.click(u"cmdCk(1)"_s);
        expectGrowth(window, "preview", {{u"shpWj"_s, 0.5, 1}});
        window.chooseFile(u"tc02"_s, 1);
        window.clickLine(u"lstSb"_s, u"tc01"_s);
        expectGrowth(window, "fields", {{u"lstSb"_s, 0.16, 0.5}, {u"fieldLines"_s, 0.3, 0.5}, {u"txtYb(0)"_s, 0.3, 0}});
        window.click(u"cmdQx"_s);
        expectGrowth(window, "records", {{u"msgBm"_s, 0.5, 1}, {u"lstSu"_s, 0.5, 0}});
    }

    void editingPage() {
        TransferWindow window;
        window.tabs().setCurrentIndex(2);
        window.choose(u"cboBm"_s, u"tc01"_s);
        expectGrowth(window, "editing", {{u"msgBm"_s, 0.6, 1}, {u"lstBh"_s, 0.3, 1}, {u"txtB2"_s, 0.3, 0}});
        window.clickRow(0);
        window.click(u"cmdCk(2)"_s);
        expectGrowth(window, "preview", {{u"shpWj"_s, 0.6, 0.6}});
        QTest::mouseDClick(&window.get<QWidget>(u"imgWj"_s), Qt::LeftButton);
        expectGrowth(window, "enlarged", {{u"shpWj"_s, 1, 1}});
    }

    void transferPage() {
        TransferWindow window;
        window.tabs().setCurrentIndex(3);
        window.choose(u"cboBm"_s, u"tc01"_s);
        window.chooseRows({0, 1});
        expectGrowth(window, "transfer", {{u"msgBm"_s, 0.6, 1}, {u"lstSu"_s, 0.3, 1}});
        window.option(u"optMb(0)"_s);
        expectGrowth(window, "folder", {{u"dir1"_s, 0.7, 1}});
        window.addSourceAlbum(u"tc01"_s, 1, 1);
        window.chooseTarget();
        window.clickLine(u"lstSb"_s, u"tc01"_s);
        expectGrowth(window, "tables", {{u"lstSb"_s, 0.2, 0.5}});
    }

    /// A control that a page places while the window is large is where it would be by growing.
    void placesDoNotDependOnTheWay() {
        TransferWindow grown, fresh;
        grown.form->resize(1200, 800);
        for (TransferWindow* window : {&grown, &fresh}) {
            window->addSourceAlbum(u"tc02"_s, 1, 1);
            for (const int tab : {0, 1, 2, 3, 1}) window->tabs().setCurrentIndex(tab);
            window->chooseFile(u"tc01"_s, 1);
            window->clickLine(u"lstSb"_s, u"tc02"_s);
        }
        fresh.form->resize(1200, 800);
        const auto one = placesOf(grown), other = placesOf(fresh);
        for (auto place = one.begin(); place != one.end(); ++place)
            QVERIFY2(other[place.key()] == place.value(), qPrintable(place.key()));
    }

    /// It is decoded anew for a room that has become larger.
    void thePreviewStaysSharp() {
        IntakeWindow window;
        window.addAll({u"1.jpg"_s}, {3000, 2250});
        window.prepare(u"tc01"_s, 1);
        window.clickFile(u"1.jpg"_s);
        window.click(u"cmdCk(1)"_s);
        auto& image = window.get<ImageBox>(u"imgWj"_s);
        const QSize before = image.size();
        window.form->resize(1920, 1050);
        QVERIFY(image.width() > 2 * before.width());
        QVERIFY(qAbs(image.width() * 3 - image.height() * 4) <= 4);
        QTRY_VERIFY(image.pixmap().width() >= image.width());
    }

    /// One that was dragged aside goes with the page from there.
    void aDraggedPreviewStaysAside() {
        IntakeWindow window;
        window.addAll({u"1.jpg"_s});
        window.prepare(u"tc01"_s, 1);
        window.clickFile(u"1.jpg"_s);
        window.click(u"cmdCk(1)"_s);
        window.form->resize(1280, 900);
        auto& frame = window.get<QGroupBox>(u"fraCk"_s);
        const QPoint aside = frame.pos() - QPoint(60, 0), title(30, 8);
        QTest::mousePress(&frame, Qt::LeftButton, {}, title);
        QTest::mouseMove(&frame, title - QPoint(60, 0));
        QTest::mouseRelease(&frame, Qt::LeftButton, {}, title);
        QCOMPARE(frame.pos(), aside);
        window.form->resize(1300, 900);
        QVERIFY((frame.pos() - aside).manhattanLength() <= 20);
        window.form->resize(640, 480);
        QVERIFY(frame.parentWidget()->rect().contains(frame.geometry()));
    }

    void theSizeIsRemembered() {
        IntakeWindow window;
        mekTp::openCatalogue();
        window.open();
        QCOMPARE(window.form->size(), QSize(640, 480));
        const QSize larger(760, 570);
        window.form->resize(larger);
        window.form->hide();
        window.open();
        QCOMPARE(window.form->size(), larger);
    }

    void widthsOfColumnsAreRemembered() {
        IntakeWindow window;
        mekTp::openCatalogue();
        window.open();
        window.tabs().setCurrentIndex(1);
        window.choose(u"cboBm"_s, u"tc01"_s);
        window.form->resize(1400, 600);
        const auto drag = [&](int column, int by) {
            QHeaderView* header = window.grid().horizontalHeader();
            const QPoint edge(header->sectionViewportPosition(column) + header->sectionSize(column) - 1, 8);
            QTest::mousePress(header->viewport(), Qt::LeftButton, {}, edge);
            QTest::mouseMove(header->viewport(), edge + QPoint(by / 2, 0));
            QTest::mouseMove(header->viewport(), edge + QPoint(by, 0));
            QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, edge + QPoint(by, 0));
        };
        const auto width = [&](int column) { return window.grid().columnWidth(column); };
        const auto whole = [&] { return window.grid().horizontalHeader()->length(); };
        const int date = 4, last = 5;
        QTRY_VERIFY(!window.grid().horizontalScrollBar()->isVisible());
        const int before = width(date), room = window.grid().viewport()->width();
        QCOMPARE(whole(), room);
        drag(date, -40);
        QTRY_COMPARE(whole(), room);  // what is left goes to the last column
        QCOMPARE(width(date), before - 40);
        drag(last, -30);
        QTRY_COMPARE(whole(), room);
        window.goToAnotherPageAndBack();
        QCOMPARE(width(date), before - 40);
        window.open();
        window.tabs().setCurrentIndex(2);
        window.choose(u"cboBm"_s, u"tc01"_s);
        QVERIFY(width(date) != before - 40);  // another grid
        window.tabs().setCurrentIndex(1);
        QCOMPARE(width(date), before - 40);
    }
};

const Registered<TestGrowingPages> registered;

}  // namespace

#include "growing_test.moc"
