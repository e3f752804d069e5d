#include "platform/desktop/theme.h"

#include "desktop.h"
#include "platform/desktop/look.h"
#include "platform/desktop/tool_icon.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// Grounds of the shipped schemes, and the most difficult ones that a person can mix.
const QList<QColor> grounds{{238, 241, 244}, {235, 243, 239}, {247, 241, 231}, {36, 48, 66},    {32, 31, 30},
                            Qt::black,       Qt::white,       {118, 118, 118}, {128, 128, 128}, Qt::red,
                            Qt::blue,        Qt::green,       {90, 90, 130}};

void addGrounds() {
    QTest::addColumn<QColor>("ground");
    for (const QColor& ground : grounds) QTest::newRow(qPrintable(ground.name())) << ground;
}

theme::Colours coloursOn(const QColor& ground) {
    return theme::isDark(ground) ? theme::dark(ground) : theme::light();
}

/// The strongest contrast to the ground that any pixel of an icon has.
double contrastOf(const QIcon& icon, QIcon::Mode mode, int side, const QColor& ground) {
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(ground);
    QPainter painter(&image);
    icon.paint(&painter, image.rect(), Qt::AlignCenter, mode);
    painter.end();
    double strongest = 1;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) strongest = std::max(strongest, theme::contrast(image.pixelColor(x, y), ground));
    return strongest;
}

class TestTheme : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void cleanup() { theme::setWorn(theme::light()); }

    void contrastFollowsTheStandard() {
        QCOMPARE(theme::contrast(Qt::black, Qt::white), 21.0);
        QCOMPARE(theme::contrast(Qt::red, Qt::red), 1.0);
        QVERIFY(std::abs(theme::contrast(QColor(118, 118, 118), Qt::white) - 4.54) < 0.01);
        QVERIFY(theme::isDark(Qt::blue) && !theme::isDark(QColor(128, 128, 128)));
    }

    void textsAreReadable_data() { addGrounds(); }
    void textsAreReadable() {
        QFETCH(QColor, ground);
        const theme::Colours worn = coloursOn(ground);
        for (const auto& [text, below] : QList<std::pair<QColor, QColor>>{{worn.ink, worn.window},
                                                                          {worn.ink, worn.base},
                                                                          {worn.ink, worn.alternate},
                                                                          {worn.ink, worn.panel},
                                                                          {worn.ink, worn.button},
                                                                          {worn.ink, worn.hover},
                                                                          {worn.ink, worn.pressed},
                                                                          {worn.ink, worn.locked},
                                                                          {worn.ink, worn.dial},
                                                                          {worn.faint, worn.window},
                                                                          {worn.faint, worn.base},
                                                                          {worn.faint, worn.panel},
                                                                          {worn.headerText, worn.header},
                                                                          {worn.accent, worn.window},
                                                                          {worn.accent, worn.base},
                                                                          {worn.onAccent, worn.accent},
                                                                          {worn.onAccent, worn.quietChoice},
                                                                          {worn.visited, worn.base},
                                                                          {worn.tipText, worn.tip}})
            QVERIFY2(theme::contrast(text, below) >= theme::textContrast,
                     qPrintable(text.name() + u" on "_s + below.name()));
        for (const QColor& below : {worn.window, worn.base, worn.panel, worn.off}) {
            const double off = theme::contrast(worn.muted, below);
            QVERIFY2(off > 1.7 && off < 3.2, qPrintable(QString::number(off)));
        }
        QVERIFY(theme::contrast(worn.alert, worn.bench) >= theme::signContrast);
    }

    void coloursAreMadeReadable_data() { addGrounds(); }
    void coloursAreMadeReadable() {
        QFETCH(QColor, ground);
        for (const QColor& colour : grounds) {
            QVERIFY(theme::contrast(theme::readable(colour, ground), ground) >= theme::textContrast);
            QVERIFY(theme::contrast(theme::faded(colour, ground), ground) <= 2);
        }
        const QColor ink = theme::readable(Qt::black, ground);
        QCOMPARE(ink == Qt::black, !theme::isDark(ground));
        // Only where the program wears dark colours.
        const QColor chosen(0, 0, 192);
        theme::setWorn(coloursOn(ground));
        QCOMPARE(theme::adapted(chosen) == chosen, !theme::isDark(ground));
        QVERIFY(theme::contrast(theme::adapted(chosen), theme::worn().base) >= theme::textContrast);
    }

    void iconsAreSeen_data() { addGrounds(); }
    void iconsAreSeen() {
        QFETCH(QColor, ground);
        for (const QString& key : {u"dk"_s, u"bj"_s, u"xs"_s, u"hd"_s, u"sj"_s, u"yd"_s, u"gb"_s, u"fh"_s, u"cx"_s}) {
            const QIcon icon = toolIcon(key, ground);
            // One and two device pixels to the pixel.
            for (const int side : {20, 40}) {
                const double on = contrastOf(icon, QIcon::Normal, side, ground);
                QVERIFY2(on >= theme::signContrast, qPrintable(key + QString::number(on)));
                const double off = contrastOf(icon, QIcon::Disabled, side, ground);
                QVERIFY2(off > 1.2 && off <= 2.1, qPrintable(key + QString::number(off)));
            }
        }
        QVERIFY(toolIcon(u"no such key"_s, ground).isNull());
    }

    /// An icon that is scaled from another size has no pixel left that is wholly a line's.
    void iconsAreDrawnForTheirSize() {
        const QColor ground(36, 48, 66);
        const QIcon light = toolIcon(u"ty"_s, Qt::white), dark = toolIcon(u"ty"_s, ground);
        for (const int side : {16, 20, 26}) {
            QImage one = light.pixmap(side).toImage(), other = dark.pixmap(side).toImage();
            QCOMPARE(one.size(), QSize(side, side));
            QCOMPARE(one.convertToFormat(QImage::Format_Alpha8), other.convertToFormat(QImage::Format_Alpha8));
        }
    }

    void sheetsAreFilledIn() {
        theme::setWorn(theme::dark(Qt::black));
        QCOMPARE(theme::filledIn(u"a: @accent; b: @accentTint; c: @off; d: @offEdge"_s),
                 u"a: %1; b: %2; c: %3; d: %4"_s.arg(theme::worn().accent.name(), theme::worn().accentTint.name(),
                                                     theme::worn().off.name(), theme::worn().offEdge.name()));
    }
};

const Registered<TestTheme> registered;

}  // namespace

#include "theme_test.moc"
