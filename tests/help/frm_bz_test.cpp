#include "help/contents_rules.h"
#include "help/entry_label.h"
#include "help/manual_colours.h"
#include "help_window.h"
#include "platform/desktop/image_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/shapes.h"
#include "platform/desktop/text_box.h"
#include "platform/desktop/theme.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const QColor blue(0, 0, 255), red(255, 0, 0), orange(255, 150, 90), green(55, 200, 90);

class TestHelpWindow : public QObject {
    Q_OBJECT

    std::optional<HelpWindow> help_;

  private Q_SLOTS:
    void init() { help_.emplace(); }

    void rules() {
        for (const auto& [caption, key] :
             {std::pair(u"1 软件的安装"_s, u"1"_s), {u"1.1 网络下载版的安装"_s, u"1.1"_s}, {u"附注："_s, u"附注："_s}})
            QCOMPARE(sectionKey(caption), key);
        QCOMPARE(sectionsSql(u"3.2"_s), u"SELECT * FROM tcbz WHERE left(编号, 3) = '3.2'"_s);
        QCOMPARE(contentsOverhang(4140, 0), 0);
        QCOMPARE(contentsOverhang(4139, 0), 1);
        QCOMPARE(contentsOverhang(5800, 7 * 240), 20);
    }

    /// The manual, the contents and the rows of the second level have to agree word for word.
    void everyEntryLeadsToItsHeading() {
        // As opened, a large screen, a small window.
        for (const QSize size : {QSize(), QSize(1900, 1040), QSize(560, 300)}) {
            init();
            if (size.isValid()) help_->form->resize(size);
            int sections = 0;
            const auto check = [&](QLabel* label, const QString& caption) {
                Q_EMIT static_cast<EntryLabel*>(label)->clicked();
                QCOMPARE(help_->paragraph(), caption);
                QCOMPARE(help_->text().SelLength(), 0);
                QVERIFY2(help_->isAtTop(), qPrintable(caption));
                QVERIFY2(help_->text().textCursor().blockFormat().headingLevel() > 1, qPrintable(caption));
            };
            for (int chapter = 0; chapter < chapterCaptions().size(); ++chapter) {
                check(help_->label(u"lblXz"_s, chapter), chapterCaptions()[chapter]);
                int section = 1;
                for (; help_->has(u"lblX0(%1)"_s.arg(section)); ++section) {
                    QLabel* label = help_->label(u"lblX0"_s, section);
                    check(label, label->text());
                }
                QCOMPARE(section == 1, chapter == introduction);
                sections += section - 1;
            }
            QCOMPARE(sections, mekTp::catalogue.OpenRecordset(u"tcbz"_s).rowCount());
        }
    }

    /// A topic has a line of its own just above the heading of the chapter that its reader wants.
    void topicsOfOtherWindows() {
        for (const auto& [topic, heading] :
             {std::pair(u"3 软件的使用"_s, u"3 软件的设置"_s), {u"5使用帮助"_s, u"4.3 图片处理窗口的使用"_s}}) {
            help_->form->showTopic(topic);
            QVERIFY(help_->paragraph().contains(topic) && help_->isAtTop());
            QCOMPARE(help_->text().textCursor().block().next().text(), heading);
        }
    }

    void backToTheTop() {
        help_->click(u"lblXz"_s, 12);
        QVERIFY(help_->text().verticalScrollBar()->value() > 0);
        QTest::mouseClick(help_->find(u"lblMl"_s), Qt::LeftButton);
        QCOMPARE(help_->text().verticalScrollBar()->value(), 0);
        QCOMPARE(help_->text().SelStart(), 0);

        // The markers come after all texts that are looked for.
        QTextDocument* manual = help_->text().document();
        const int last = manual->find(u"附注：四"_s).position();
        for (const QString& marker : {u"邮编"_s, u"－－－－－－"_s}) QVERIFY(manual->find(marker).position() > last);
    }

    void aTextThatIsNotThere() {
        RichTextBox& text = help_->text();
        const QString words = u"4.2 窗口颜色配置"_s;
        const int heading = text.Find(words, 0);
        const int view = text.verticalScrollBar()->value();
        QVERIFY(heading > 0 && view > 0);
        QCOMPARE(text.SelLength(), words.size());
        QCOMPARE(text.Find(u"没有这样的标题"_s, 0), -1);
        QCOMPARE(text.Find(words, heading + 1), -1);
        QCOMPARE(text.SelStart(), heading);
        QCOMPARE(text.verticalScrollBar()->value(), view);
        QCOMPARE(text.Find(u"LUNQ.MDB"_s, 0), text.Find(u"lunq.mdb"_s, 0));
    }

    void oneChapterIsOpenAtATime() {
        QVERIFY(!help_->has(u"vsc1"_s));
        QCOMPARE(widthOf(help_->find(u"picGd"_s)), 2790);
        help_->click(u"lblXz"_s, 2);
        QCOMPARE(help_->label(u"lblX0"_s, 1)->text(), u"1.1.1 解压就能用的压缩包"_s);
        QCOMPARE(topOf(help_->label(u"lblX0"_s, 2)), 2 * 240 + 60 + 2 * 240);
        QCOMPARE(topOf(help_->label(u"lblXz"_s, 2)), 2 * 240 + 60);
        QCOMPARE(topOf(help_->label(u"lblXz"_s, 3)), (3 + 5) * 240 + 60);
        QVERIFY(!help_->has(u"vsc1"_s));

        help_->click(u"lblXz"_s, 11);  // its seven sections are too many for the panel
        QVERIFY(help_->label(u"lblX0"_s, 1)->text().startsWith(u"4.1.1 "));
        QVERIFY(help_->has(u"lblX0(7)"_s) && help_->has(u"vsc1"_s));
        QCOMPARE(topOf(help_->label(u"lblXz"_s, 3)), 3 * 240 + 60);
        QCOMPARE(topOf(help_->label(u"lblXz"_s, 12)), (12 + 7) * 240 + 60);
        QCOMPARE(widthOf(help_->find(u"picGd"_s)), 3045);  // 3040 twips in whole pixels
        auto* bar = help_->find<QScrollBar>(u"vsc1"_s);
        bar->setValue(bar->maximum());
        QCOMPARE(pixelsFromTwips(-bar->maximum()), help_->find(u"picBz"_s)->y());
        QVERIFY(bar->maximum() > 0);

        help_->click(u"lblXz"_s, 0);
        QVERIFY(!help_->form->findChild<QLabel*>(u"lblX0(1)"_s) && !help_->has(u"vsc1"_s));
        QCOMPARE(help_->find(u"picBz"_s)->y(), 0);
        for (int i = 0; i < 16; ++i) QCOMPARE(topOf(help_->label(u"lblXz"_s, i)), i * 240 + 60);
    }

    void partsFollowTheWindow() {
        struct Case {
            QSize window, text;
            int frame, contents, buttons;
        };
        for (const Case& each :
             {Case{{640, 480}, {6000, 6585}, 6550, 5800, 6120}, Case{{1000, 700}, {11400, 9885}, 9850, 9100, 9420}}) {
            help_->form->resize(each.window);
            QCOMPARE(help_->text().geometry(), rectFromTwips(3370, 90, each.text.width(), each.text.height()));
            QCOMPARE(help_->find(u"shpMl"_s)->height(), rectFromTwips(0, 90, 1, each.frame).height());
            QVERIFY(std::abs(heightOf(help_->find(u"picGd"_s)) - each.contents) <= 15);
            QVERIFY(std::abs(topOf(help_->find(u"fraAn"_s)) - each.buttons) <= 8);
        }
    }

    void looksUnderTheMouse() {
        help_->click(u"lblXz"_s, 1);
        const auto isIn = [&](QWidget* label, const QColor& colour, bool underlined) {
            return label->palette().color(QPalette::WindowText) == colour && label->font().underline() == underlined;
        };
        QWidget* head = help_->find(u"lblMl"_s);
        QWidget* low = help_->label(u"lblXz"_s, 3);
        QWidget* high = help_->label(u"lblXz"_s, 15);
        QWidget* section = help_->label(u"lblX0"_s, 1);
        QTest::mouseMove(high);
        QVERIFY(isIn(high, orange, true) && isIn(low, blue, false) && isIn(head, red, false));
        QTest::mouseMove(head);  // the lower chapters keep their look
        QVERIFY(isIn(head, green, true) && isIn(high, orange, true));
        QTest::mouseMove(low);
        QVERIFY(isIn(low, orange, true) && isIn(high, blue, false) && isIn(head, red, false));
        QTest::mouseMove(head);
        QVERIFY(isIn(low, blue, false));
        QTest::mouseMove(section);
        QVERIFY(isIn(section, orange, true) && isIn(head, red, false));
        QTest::mouseMove(help_->find(u"picBz"_s), QPoint(2, 2));
        QVERIFY(isIn(section, blue, false));
        QTest::mouseMove(low);
        QTest::mouseMove(help_->form.get(), QPoint(2, 2));
        QVERIFY(isIn(low, blue, false));
    }

    void longCaptionsShowInFull() {
        const QString title = u"一个长得在目录里怎么也放不下的标题，要看完它得有两行"_s;
        help_.emplace([&title] {
            addRow(u"tcbz"_s, {{u"编号"_s, u"2"_s}, {u"标题"_s, title}});
            const QString manual = fieldOf(u"tcsz"_s, u"帮助"_s).toText();
            changeRow(u"tcsz"_s,
                      {{u"帮助"_s, QString(manual).replace(u"<h2>3.1 "_s, u"<h3>2 %1</h3><h2>3.1 "_s.arg(title))}});
        });
        auto* full = help_->find<CaptionBox>(u"txtFd"_s);
        help_->click(u"lblXz"_s, 3);
        QTest::mouseMove(help_->label(u"lblX0"_s, 1));
        QVERIFY(full->isHidden());
        QLabel* section = help_->label(u"lblX0"_s, 5);
        QTest::mouseMove(section);
        QVERIFY(full->isVisible());
        QCOMPARE(full->text(), u"2 "_s + title);
        QCOMPARE(full->pos() - section->pos(), QPoint(28, 18));
        QVERIFY(full->document()->size().height() >= 2);
        // Pixel by pixel from the section into the box, over a strip of the next entry.
        const QPoint start = section->pos() + QPoint(40, 4);
        QWidget* list = help_->find(u"picBz"_s);
        for (int step = 0; step < 30; ++step) {
            const QPoint at = start + QPoint(0, step);
            QCursor::setPos(list->mapToGlobal(at));
            QWidget* below = list->childAt(at);
            QTest::mouseMove(below, below->mapFrom(list, at));
            QVERIFY2(full->isVisible(), qPrintable(QString::number(step)));
        }
        QCOMPARE(full->text(), u"2 "_s + title);
        QTest::mouseClick(full->viewport(), Qt::LeftButton);
        QCOMPARE(help_->paragraph(), u"2 "_s + title);

        QLabel* next = help_->label(u"lblXz"_s, 4);
        QTest::mouseMove(next, QPoint(2, 10));
        QVERIFY(full->isHidden() && next->font().underline());
        section->setFocus(Qt::TabFocusReason);
        QVERIFY(full->isVisible());
        help_->text().setFocus(Qt::TabFocusReason);
        QVERIFY(full->isHidden() && !section->font().underline());
        QTest::mouseMove(section);
        QVERIFY(full->isVisible());
        QTest::mouseMove(help_->find(u"picBz"_s), QPoint(2, 2));
        QVERIFY(full->isHidden());
    }

    void keyboardReachesEveryEntry() {
        QLabel* chapter = help_->label(u"lblXz"_s, 2);
        chapter->setFocus(Qt::TabFocusReason);
        QTest::keyClick(chapter, Qt::Key_Return);
        QCOMPARE(help_->paragraph(), u"1.1 网络下载版的安装"_s);
        QTest::keyClick(chapter, Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), help_->label(u"lblX0"_s, 1));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        QCOMPARE(help_->paragraph(), u"1.1.2 用源代码编译"_s);
        for (int section = 2; section <= 5; ++section) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), help_->label(u"lblXz"_s, 3));
    }

    void readersOwnWords() {
        auto* words = help_->find<QLineEdit>(u"txtCz"_s);
        QTest::keyClick(help_->form.get(), Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(help_->form->focusWidget(), words);
        words->setText(u"反时针"_s);
        QTest::keyClick(words, Qt::Key_Return);
        QCOMPARE(help_->text().textCursor().selectedText(), u"反时针"_s);
        const int only = help_->text().SelStart();

        words->setText(u"备份"_s);  // several hits, the first of them only by going on from the beginning
        QList<int> hits;
        for (int i = 0; i < 40 && (hits.size() < 2 || hits.first() != hits.last()); ++i) {
            QTest::mouseClick(help_->find(u"cmdCz"_s), Qt::LeftButton);
            hits << help_->text().SelStart();
        }
        QCOMPARE(hits.last(), hits.first());
        QVERIFY(hits.size() > 5 && *std::min_element(hits.begin(), hits.end()) < only);

        words->setText(u"没有这样的词"_s);
        QTest::keyClick(words, Qt::Key_Return);
        QCOMPARE(help_->find<QLabel>(u"lblCz"_s)->text(), u"没有找到"_s);
    }

    void theChapterInViewIsMarked() {
        const auto marked = [&] {
            QStringList captions;
            for (int i = 0; i < chapterCaptions().size(); ++i)
                if (help_->find<EntryLabel>(u"lblXz(%1)"_s.arg(i))->isMarked()) captions << chapterCaptions()[i];
            return captions.join(u'|');
        };
        QCOMPARE(marked(), chapterCaptions().first());
        for (const int chapter : {1, 6, 11, 15}) {
            help_->click(u"lblXz"_s, chapter);
            QCOMPARE(marked(), chapterCaptions()[chapter]);
        }
        QScrollBar* view = help_->text().verticalScrollBar();
        view->setValue(0);
        QCOMPARE(marked(), chapterCaptions().first());
        view->setValue(view->maximum());
        QCOMPARE(marked(), chapterCaptions().last());

        // Other colours change neither the view nor what is marked.
        const int last = view->value();
        for (const theme::Colours& colours : {theme::dark(Qt::black), theme::light()}) {
            theme::setWorn(colours);
            QEvent change(QEvent::PaletteChange);
            QApplication::sendEvent(help_->form.get(), &change);
            QCOMPARE(view->value(), last);
            QCOMPARE(marked(), chapterCaptions().last());
        }
        QVERIFY(indentOf(u"3.1.1 四个页面与提示行"_s) > indentOf(u"3.1 软件设置窗口概述"_s));
        QVERIFY(indentOf(u"3.1 软件设置窗口概述"_s) > indentOf(u"3 软件的设置"_s));
    }

    void theListStaysUnderTheMouse() {
        help_->form->resize(help_->form->minimumSize());
        const auto* bar = help_->find<QScrollBar>(u"vsc1"_s);
        QVERIFY(bar->isVisible());
        const QSignalSpy moves(bar, &QScrollBar::valueChanged);
        for (const int chapter : {3, 5, 2}) help_->click(u"lblXz"_s, chapter);
        QCOMPARE(moves.size(), 0);
    }

    void picturesAreSeenLarge() {
        help_->click(u"lblXz"_s, 6);
        help_->text().setFocus();
        QWidget* large = help_->find(u"picFd"_s);
        const auto* picture = help_->find<ImageBox>(u"imgFd"_s);
        QTest::keyClick(&help_->text(), Qt::Key_Return);
        QVERIFY(large->isVisible() && large->rect().contains(picture->geometry()));
        QCOMPARE(picture->picture().pixels().width(), 680);
        QCOMPARE(large->accessibleName(), u"图册设置"_s);
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
            QTest::keyClick(large, key);
            QCOMPARE(help_->form->focusWidget(), large);
        }
        QTest::keyClick(large, Qt::Key_Escape);
        QVERIFY(large->isHidden() && help_->form->isVisible());
        QCOMPARE(help_->form->focusWidget(), &help_->text());

        QWidget* view = help_->text().viewport();
        QTest::mouseMove(view, QPoint(view->width() / 2, 150));
        QCOMPARE(view->cursor().shape(), Qt::PointingHandCursor);
        QTest::mouseClick(view, Qt::LeftButton, {}, QPoint(view->width() / 2, 150));
        QVERIFY(large->isVisible());
        QTest::mouseClick(large, Qt::LeftButton, {}, QPoint(2, 2));
        QVERIFY(large->isHidden());
        QTest::mouseMove(view, QPoint(4, 4));
        QCOMPARE(view->cursor().shape(), Qt::IBeamCursor);
    }

    void coloursOnADarkGround() {
        const QString html = u"p { color: #22303c; } td { background-color: #f6f3ec; }"_s;
        QCOMPARE(inWornColours(html), html);
        theme::setWorn(theme::dark(Qt::black));
        const QString worn = inWornColours(html);
        theme::setWorn(theme::light());
        static const QRegularExpression colour(u"#[0-9a-f]{6}"_s);
        QCOMPARE(QString(worn).remove(colour), QString(html).remove(colour));
        auto found = colour.globalMatch(worn);
        const QColor text(found.next().captured()), ground(found.next().captured());
        QVERIFY(theme::isDark(ground) && theme::contrast(text, ground) >= theme::textContrast);
    }

    void pictureButtons() {
        const auto line = [&](int index) { return help_->find<LineBox>(u"linFh(%1)"_s.arg(index)); };
        const auto shown = [&] {
            QString pattern;
            for (int i = 0; i < 8; ++i) pattern += line(i)->isHidden() ? u'-' : u'|';
            return pattern;
        };
        auto* back = help_->find<ImageBox>(u"imgFh"_s);
        auto* leave = help_->find<ImageBox>(u"imgGb"_s);
        QCOMPARE(shown(), u"--------"_s);
        QTest::mouseMove(back);
        QCOMPARE(shown(), u"||||----"_s);
        QTest::mouseMove(leave);
        QCOMPARE(shown(), u"----||||"_s);
        QTest::mouseMove(help_->form.get(), QPoint(2, 2));
        QCOMPARE(shown(), u"--------"_s);

        back->setFocus(Qt::TabFocusReason);
        QCOMPARE(shown(), u"||||----"_s);
        leave->setFocus(Qt::TabFocusReason);
        QCOMPARE(shown(), u"----||||"_s);
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space}) {
            QTest::keyClick(leave, key);
            QCOMPARE(help_->takeAsked(), QStringList{u"end"_s});
        }
        help_->text().setFocus();
        QCOMPARE(shown(), u"--------"_s);

        QTest::mousePress(back, Qt::LeftButton);
        QCOMPARE(line(0)->color(), QColor(128, 128, 128));
        QCOMPARE(line(3)->color(), QColor(Qt::white));
        QTest::mouseRelease(back, Qt::LeftButton);
        QCOMPARE(help_->takeAsked(), (QStringList{u"show"_s, u"unload"_s}));
        QTest::mouseClick(leave, Qt::LeftButton);
        QCOMPARE(help_->takeAsked(), QStringList{u"end"_s});
    }

    void closingUnloads() {
        help_->form->close();
        QCOMPARE(help_->takeAsked(), QStringList{u"unload"_s});
        help_->form->show();
        QTest::keyClick(help_->form.get(), Qt::Key_Escape);
        QCOMPARE(help_->takeAsked(), QStringList{u"unload"_s});
    }
};

const Registered<TestHelpWindow> registered;

}  // namespace

#include "frm_bz_test.moc"
