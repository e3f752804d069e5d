#include "../support/disk_faults.h"

#include "editing_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// Something that a person stores: the way to it, the button that stores, and what is still on the form when that has
/// failed.
struct Work {
    const char* name;
    std::function<void(EditingWindow&)> begin;
    QString button;
    QString caption;                   ///< Of the button, while the work can be repeated.
    QString box;                       ///< Holds what was typed.
    QString whenGone = u"已被移走"_s;  ///< Said when the file is gone; a run opens it anew.
};

const Work works[] = {
    {"new album",
     [](EditingWindow& window) {
         window.tabs().setCurrentIndex(0);
         window.click(u"cmdJl"_s);
         window.box(u"txtBa"_s).setText(u"tc07"_s);
         window.box(u"txtBb"_s).setText(u"typed"_s);
     },
     u"cmdJl"_s, u"确 定"_s, u"txtBb"_s},
    {"title",
     [](EditingWindow& window) {
         window.tabs().setCurrentIndex(0);
         window.click(u"cmdBt"_s);
         window.box(u"txtXt"_s).setText(u"typed"_s);
     },
     u"cmdBt"_s, u"保 存"_s, u"txtXt"_s},
    {"button",
     [](EditingWindow& window) {
         window.tabs().setCurrentIndex(0);
         window.click(u"cmdQu"_s);
         for (const auto& [box, text] :
              {std::pair{u"txtX1"_s, u"9"_s}, {u"txtB1"_s, u"k"_s}, {u"txtM1"_s, u"typed"_s}, {u"txtC1"_s, u"tc01"_s}})
             window.box(box).setText(text);
     },
     u"cmdQu"_s, u"保 存"_s, u"txtM1"_s},
    {"record",
     [](EditingWindow& window) {
         window.click(u"cmdQd"_s);
         window.box(u"txtB2"_s).setText(u"typed"_s);
     },
     u"cmdQd"_s, u"确 定"_s, u"txtB2"_s},
    {"deletion", [](EditingWindow&) {}, u"cmdSc"_s, u"删 除"_s, {}},
    {"renumbering",
     [](EditingWindow& window) {
         runOutside(u"UPDATE tc01 SET 序号 = 序号 * 10"_s);
         window.clickOption(u"optP1(1)"_s);
     },
     u"cmdJh"_s,
     u"重排序号"_s,
     {},
     u"不存在"_s},
};

class TestDiskFaults : public QObject {
    Q_OBJECT

    /// Nothing changes while the fault lasts, whatever was begun stands, and the same click stores it afterwards.
    template <typename MakeFault>
    void survive(const Work& work, const QString& reason, MakeFault makeFault) {
        EditingWindow window;
        work.begin(window);
        window.said();
        const QByteArray before = contentOf(mekTp::cataloguePath());
        {
            const auto fault = makeFault();
            window.click(work.button);
            const QString said = window.said().join(u'\n');
            QVERIFY2(said.contains(mekTp::cataloguePath()) && said.contains(reason),
                     qPrintable(QString::fromUtf8(work.name) + u": "_s + said));
        }
        QVERIFY2(contentOf(mekTp::cataloguePath()) == before, work.name);
        QCOMPARE(window.caption(work.button), work.caption);
        if (!work.box.isEmpty()) QCOMPARE(window.text(work.box), u"typed"_s);

        window.click(work.button);
        const QString said = window.said().join(u'\n');
        QVERIFY2(!said.contains(mekTp::cataloguePath()), qPrintable(said));
        QVERIFY2(contentOf(mekTp::cataloguePath()) != before, work.name);
    }

  private Q_SLOTS:
    void fullDisk() {
        for (const Work& work : works) survive(work, u"磁盘"_s, [] { return std::make_unique<FullDisk>(0); });
    }

    void diskThatIsGone() {
        for (const Work& work : works)
            survive(work, work.whenGone, [] { return std::make_unique<GoneFile>(mekTp::cataloguePath()); });
    }
};

const Registered<TestDiskFaults> registered;

}  // namespace

#include "disk_faults_test.moc"
