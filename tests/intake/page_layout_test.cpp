#include "database_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// No two controls that the page shows stand on each other, and no label is too small for its text.
void expectClear(const IntakeWindow& window, const char* state) {
    QList<QWidget*> shown;
    const QWidget* page = window.tabs().page(1);
    for (auto* control : page->findChildren<QWidget*>()) {
        const QString parent = control->parentWidget()->objectName();
        const bool direct = control->parentWidget() == page || parent == u"picMl"_s;
        const bool ground = control->objectName() == u"picMl"_s || control->objectName().startsWith(u"shp"_s);
        if (direct && !ground && control->isVisible() && !control->objectName().isEmpty()) shown << control;
    }
    const auto place = [page](const QWidget* control) {
        return QRect(control->mapTo(page, QPoint(0, 0)), control->size());
    };
    for (const QWidget* one : shown) {
        for (const QWidget* other : shown) {
            const bool arrow = one->objectName() == u"lblB0"_s || other->objectName() == u"lblB0"_s;
            if (one == other || arrow) continue;
            const QString pair =
                QString::fromLatin1(state) + u": "_s + one->objectName() + u" / "_s + other->objectName();
            QVERIFY2(!place(one).intersects(place(other)), qPrintable(pair));
        }
        if (const auto* label = qobject_cast<const QLabel*>(one)) {
            const int flags = label->wordWrap() ? Qt::TextWrapAnywhere : Qt::TextSingleLine;
            const QRect text = label->fontMetrics().boundingRect(label->rect(), flags, label->text());
            const int lines = text.height() / label->fontMetrics().height();
            const bool fits = text.width() <= label->width() && (lines < 2 || text.height() <= label->height());
            QVERIFY2(fits, qPrintable(QString::fromLatin1(state) + u": "_s + label->objectName()));
        }
    }
}

class TestIntakeLayout : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void codeButtonPlaces_data() {
        QTest::addColumn<int>("tab");
        QTest::addColumn<int>("count");
        QTest::addColumn<QPoint>("last");  // twips of the tab control
        const QPoint intake(5450, 5416), transfer(7830, 1231);
        QTest::newRow("intake 13") << 1 << 13 << intake + QPoint(12 * 280, 0);
        QTest::newRow("intake 14") << 1 << 14 << intake + QPoint(0, 250);
        QTest::newRow("intake 44") << 1 << 44 << intake + QPoint(4 * 280, 3 * 250);
        QTest::newRow("intake 53") << 1 << 53 << intake + QPoint(10 * (280 * 13 / 14), 3 * 250);
        QTest::newRow("transfer 13") << 3 << 13 << transfer + QPoint(0, 3 * 250);
        QTest::newRow("transfer 14") << 3 << 14 << transfer + QPoint(280, 3 * 250);
        QTest::newRow("transfer 44") << 3 << 44 << transfer + QPoint(3 * 280, 10 * 250);
        QTest::newRow("transfer 53") << 3 << 53 << transfer + QPoint(2 * (280 * 4 / 5), 10 * 250);
    }
    void codeButtonPlaces() {
        QFETCH(int, tab);
        QFETCH(int, count);
        QFETCH(QPoint, last);
        IntakeWindow window;
        QCOMPARE(window.form->findChildren<QPushButton*>(QRegularExpression(u"^cmdBh\\(\\d+\\)$"_s)).size(), 45);
        mekTp::catalogue.Execute(u"DELETE FROM [tcan]"_s);
        for (int i = 0; i < count; ++i) {
            const QString code(QChar(0x4e00 + i));
            addRow(u"tcan"_s, {{u"序号"_s, i + 1}, {u"编号"_s, code}, {u"图册"_s, u"tc01"_s}});
        }
        window.tabs().setCurrentIndex(tab);
        window.choose(u"cboBm"_s, u"tc01"_s);
        const QPoint at = window.button(u"cmdBh(%1)"_s.arg(count - 1)).mapTo(&window.tabs(), QPoint(0, 0)) * 15;
        QVERIFY2((at - last).manhattanLength() <= 30, qPrintable(u"%1,%2"_s.arg(at.x()).arg(at.y())));
        // The texts about the buttons stand clear of them, and of the frame.
        const QString about = tab == 1 ? u"lblBx(1)"_s : u"lblBx(0)"_s;
        const QRect all = window.form->rect().adjusted(0, 0, 0, -30);
        for (const QString& name : {u"txtB0"_s, about}) {
            const auto& text = window.get<QWidget>(name);
            QVERIFY(text.isVisible() && all.contains(text.geometry().translated(text.parentWidget()->pos())));
            for (int i = 0; i < count; ++i)
                QVERIFY(!text.geometry().intersects(window.button(u"cmdBh(%1)"_s.arg(i)).geometry()));
        }
    }

    void nothingOverlaps() {
        DatabaseWindow window;
        window.addSourceAlbum(u"tc01"_s, 1, 1);
        window.addAll({u"1.jpg"_s, u"2.jpg"_s});
        expectClear(window, "fresh");
        window.choose(u"cboBm"_s, u"tc01"_s);
        expectClear(window, "album");
        window.prepare(u"tc01"_s, 1);
        expectClear(window, "source");
        window.click(u"cmdQx"_s);
        expectClear(window, "files");
        window.click(u"cmdLr"_s);
        expectClear(window, "after a run");
        window.chooseFile(u"tc02"_s, 1);
        expectClear(window, "tables");
        window.clickLine(u"lstSb"_s, u"tc01"_s);
        expectClear(window, "fields");
    }
};

const Registered<TestIntakeLayout> registered;

}  // namespace

#include "page_layout_test.moc"
