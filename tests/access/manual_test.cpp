#include "../tour/program_tour.h"
#include "help/rich_text_box.h"
#include "help/shipped_manual.h"
#include "platform/desktop/tab_control.h"
#include "start/help_key.h"

using namespace Qt::Literals::StringLiterals;

namespace {

QString plain(const QString& html) {
    return QTextDocumentFragment::fromHtml(html).toPlainText().simplified();
}

QStringList matches(const QString& pattern, const QString& text) {
    QStringList all;
    for (auto match = QRegularExpression(pattern).globalMatch(text); match.hasNext();) all << match.next().captured(1);
    return all;
}

/// All texts that a window shows or can show, menus and tips included, without the marks of keys.
QStringList textsOf(const QObject* window) {
    QStringList texts;
    QList<const QObject*> parts{window};
    for (const QObject* part : window->findChildren<QObject*>()) parts << part;
    for (const QObject* part : parts) {
        for (const char* property : {"text", "title", "windowTitle", "toolTip"})
            texts << part->property(property).toString();
        if (const auto* box = qobject_cast<const QComboBox*>(part))
            for (int i = 0; i < box->count(); ++i) texts << box->itemText(i);
        if (const auto* tabs = qobject_cast<const QTabWidget*>(part))
            for (int i = 0; i < tabs->count(); ++i) texts << tabs->tabText(i);
    }
    static const QRegularExpression mark(u"\\(&.\\)|&"_s);
    for (QString& text : texts) text = text.remove(mark).simplified();
    return texts;
}

/// "Home、End", "1 至 6", "F4 或 Alt+↓", "Ctrl 和 +、-": the keys that a row of the manual names.
QList<QKeySequence> keysOf(QString words) {
    for (const auto& [word, key] : {std::pair(u"←"_s, u"Left"_s),
                                    {u"→"_s, u"Right"_s},
                                    {u"回车"_s, u"Return"_s},
                                    {u"空格"_s, u"Space"_s},
                                    {u"PageUp"_s, u"PgUp"_s},
                                    {u"PageDown"_s, u"PgDown"_s}})
        words.replace(word, key);
    words.replace(u"1 至 6"_s, u"1、2、3、4、5、6"_s);
    const QString prefix = words.contains(u" 和 "_s) ? words.section(u" 和 "_s, 0, 0) + u'+' : QString();
    QList<QKeySequence> keys;
    for (const QString& word : words.section(u" 和 "_s, -1).split(u'、')) keys << QKeySequence(prefix + word);
    return keys;
}

bool takes(QWidget* window, const QKeySequence& keys) {
    for (const QAction* action : window->findChildren<QAction*>())
        if (action->shortcuts().contains(keys)) return true;
    const QKeyCombination key = keys[0];
    QKeyEvent press(QEvent::KeyPress, key.key(), key.keyboardModifiers());
    QApplication::sendEvent(window, &press);
    return press.isAccepted();
}

/// The manual that the program carries, and the windows that it describes.
class TestManual : public QObject {
    Q_OBJECT

    const QString manual_ = shippedManual().text;
    std::unique_ptr<ProgramTour> tour_;

    QWidget* open(const QString& name) {
        static const QHash<QString, WindowKind> beside{
            {u"frmPs"_s, WindowKind::colours}, {u"frmBz"_s, WindowKind::help}, {u"frmGy"_s, WindowKind::about}};
        if (beside.contains(name)) tour_->program->show(beside[name]);
        if (name == u"frmSz") tour_->program->handOver(WindowKind::viewer, WindowKind::settings);
        if (name == u"frmCl") tour_->program->handOver(WindowKind::viewer, WindowKind::editor);
        if (name == u"frmHy") {
            open(u"frmSz"_s);
            ProgramTour::click(u"frmSz"_s, u"cmdHy"_s);
        }
        QWidget* shown = tour_->window(name);
        QApplication::setActiveWindow(shown);
        return shown;
    }

  private Q_SLOTS:
    void init() {
        tour_ = std::make_unique<ProgramTour>();
        tour_->start();
    }
    void cleanup() { tour_.reset(); }

    /// Captions are in the windows; what only questions and messages say is among the words of the program.
    void quotesOnlyWhatTheProgramSays() {
        QStringList shown;
        for (const QString& name : {u"frmTp"_s, u"frmPs"_s, u"frmBz"_s, u"frmGy"_s, u"frmSz"_s})
            shown << textsOf(open(name));
        tour_->program->handOver(WindowKind::settings, WindowKind::editor);
        shown << textsOf(tour_->window(u"frmCl"_s));
        QFile program(qEnvironmentVariable("LUNQ_PROGRAM"));
        QVERIFY(program.open(QIODevice::ReadOnly));
        const QByteArray words = program.readAll();
        // What a person writes, and a menu of the desktop.
        const QStringList others{u"北海之行"_s, u"小孙女"_s, u"图形"_s};
        QStringList unknown;
        int inWindows = 0;
        for (const QString& quoted : matches(u"[“《]([^”》]+)[”》]"_s, plain(manual_))) {
            const bool isShown = shown.contains(quoted) || shown.contains(quoted + u'：');
            inWindows += isShown ? 1 : 0;
            // An amount in it is an example.
            const QString said = QString(quoted).replace(QRegularExpression(u"\\d+"_s), u"%1"_s);
            const bool isSaid = std::ranges::any_of(std::array{quoted, said}, [&](const QString& text) {
                return words.contains(QByteArray(reinterpret_cast<const char*>(text.utf16()), text.size() * 2));
            });
            if (!isShown && !isSaid && !others.contains(quoted)) unknown << quoted;
        }
        QCOMPARE(unknown.join(u' '), QString());
        QVERIFY2(inWindows > 100, qPrintable(QString::number(inWindows)));
    }

    void namesOnlyKeysThatDoSomething_data() {
        QTest::addColumn<QString>("window");
        QTest::addColumn<QString>("keys");
        const QHash<QString, QString> windows{
            {u"主窗口"_s, u"frmTp"_s}, {u"图片处理窗口"_s, u"frmCl"_s}, {u"帮助"_s, u"frmBz"_s}};
        const QString table = manual_.section(u"键盘一览</h3>"_s, 1).section(u"</table>"_s, 0, 0);
        for (const QString& row : matches(u"<tr><td>(.*)</td></tr>"_s, table)) {
            const QStringList cells = row.split(u"</td><td>"_s);
            // Others test what is no key of the window itself, and what needs a picture of an album.
            const bool isForKeys =
                !cells[1].contains(u"字母") && !cells[1].contains(u"Tab") && !cells[2].contains(u"切换图册");
            if (windows.contains(cells[0]) && isForKeys)
                QTest::newRow(qPrintable(cells[0] + u' ' + cells[1])) << windows[cells[0]] << cells[1];
        }
    }
    void namesOnlyKeysThatDoSomething() {
        QFETCH(QString, window);
        QFETCH(QString, keys);
        for (const QKeySequence& key : keysOf(keys)) {
            QVERIFY2(!key.isEmpty(), qPrintable(keys));
            QVERIFY2(takes(open(window), key), qPrintable(key.toString()));
        }
    }

    /// Whatever has the focus, F1 leads to a heading that the manual has.
    void everyControlHasItsSection() {
        QStringList headings = matches(u"<h[23][^>]*>(.*?)</h[23]>"_s, manual_);
        for (QString& heading : headings) heading = plain(heading);
        QStringList lost;
        const auto look = [&](const QWidget* window) {
            for (const auto* control : window->findChildren<QWidget*>())
                if (!headings.contains(sectionAbout(control)))
                    lost << window->objectName() + u'.' + control->objectName();
        };
        for (const QString& name : {u"frmTp"_s, u"frmPs"_s, u"frmBz"_s, u"frmGy"_s, u"frmSz"_s}) look(open(name));
        tour_->program->handOver(WindowKind::settings, WindowKind::editor);
        look(tour_->window(u"frmCl"_s));
        QCOMPARE(lost.join(u' '), QString());
    }

    void f1OpensTheSectionOfTheControl_data() {
        QTest::addColumn<QString>("window");
        QTest::addColumn<int>("page");
        QTest::addColumn<QString>("control");
        QTest::addColumn<QString>("heading");
        QTest::newRow("page number") << u"frmTp"_s << -1 << u"txtYh"_s << u"4.1.3 翻页与每页张数"_s;
        QTest::newRow("window that blocks its own") << u"frmHy"_s << -1 << u"lstHy"_s << u"3.2.5 图册备份设置"_s;
        QTest::newRow("backup") << u"frmSz"_s << 0 << u"txtBf"_s << u"3.2.5 图册备份设置"_s;
        QTest::newRow("folders of the intake") << u"frmSz"_s << 1 << u"cboBm"_s << u"3.3 《图片录入》页面的设置"_s;
        QTest::newRow("button codes") << u"frmSz"_s << 2 << u"lstBh"_s << u"3.4.2 只看一部分记录"_s;
        QTest::newRow("editor") << u"frmCl"_s << -1 << u"txtTs"_s << u"4.3 图片处理窗口的使用"_s;
        QTest::newRow("about") << u"frmGy"_s << -1 << u"cmdQd"_s << u"4.4.3 关于本软件"_s;
    }
    void f1OpensTheSectionOfTheControl() {
        QFETCH(QString, window);
        QFETCH(int, page);
        QFETCH(QString, control);
        QFETCH(QString, heading);
        changeRow(u"tcsz"_s, {{u"帮助"_s, manual_}});
        QWidget* shown = open(window);
        if (page >= 0) shown->findChild<TabControl*>()->setCurrentIndex(page);
        QTest::keyClick(found<QWidget>(shown, control), Qt::Key_F1);
        QVERIFY(tour_->window(u"frmBz"_s));
        QCOMPARE(tour_->find<RichTextBox>(u"frmBz"_s, u"rtfBz"_s)->textCursor().block().text(), heading);
    }
};

const Registered<TestManual> registered;

}  // namespace

#include "manual_test.moc"
