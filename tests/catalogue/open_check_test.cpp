#include "catalogue/open_check.h"

#include "../support/failing_disk.h"
#include "../support/sample_catalogue.h"
#include "platform/base/files.h"
#include "platform/database/file/file_check.h"

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Outcome = FileCheck::Outcome;

constexpr OpenCheck::Pace atOnce{0ms, 1ms};

/// A picture of many pages.
void addLargePicture(int megabytes) {
    addRow(u"tc01"_s, {{u"序号"_s, 99}, {u"图片"_s, QByteArray(qsizetype(megabytes) << 20, 'x')}});
}

void overwrite(const QString& path, qint64 at, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite) || !file.seek(at) || file.write(bytes) != bytes.size()) qFatal("cannot write");
}

class TestOpenCheck : public SampleTest {
    Q_OBJECT

    std::atomic<int> told_ = 0;   ///< Of damage.
    std::atomic<int> whole_ = 0;  ///< Times that nothing was found.

    QString path() const { return mekTp::cataloguePath(); }
    OpenCheck::Finished count() {
        return [this](Outcome outcome) { ++(outcome == Outcome::damaged ? told_ : whole_); };
    }
    void closeCatalogue() { mekTp::catalogue = {}; }

  private Q_SLOTS:
    void init() {
        SampleTest::init();
        told_ = whole_ = 0;
    }

    void damageIsFound() {
        QCOMPARE(FileCheck(path()).run(), Outcome::whole);
        closeCatalogue();
        const qint64 size = FileLen(path());
        struct Case {
            const char* what;
            std::function<void()> damage;
        };
        QVERIFY(QFile::copy(path(), sample_->file(u"good.mdb"_s)));
        const Case cases[] = {
            {"a page of nothing", [&] { overwrite(path(), size - 16384, QByteArray(16384, '\xff')); }},
            {"cut off", [&] { QVERIFY(QFile::resize(path(), size / 2)); }},
            {"emptied", [&] { QVERIFY(QFile::resize(path(), 0)); }},
            {"another file", [&] { overwrite(path(), 0, QByteArray(100, 'x')); }},
        };
        for (const auto& [what, damage] : cases) {
            QVERIFY(QFile::remove(path()) && QFile::copy(sample_->file(u"good.mdb"_s), path()));
            damage();
            QVERIFY2(FileCheck(path()).run() == Outcome::damaged, what);
            told_ = 0;
            OpenCheck check(path(), count(), atOnce);
            QTRY_COMPARE(told_, 1);
        }
        // Gone with its disk, it is not damaged.
        FileCheck check(path());
        QVERIFY(QFile::remove(path()));
        QVERIFY_THROWS_EXCEPTION(Error, check.run());
        QVERIFY_THROWS_EXCEPTION(Error, FileCheck{path()});
    }

    /// What cannot be read, now or always, is not known to be damaged; what can be read and is, is.
    void diskThatDoesNotAnswer() {
        closeCatalogue();
        FailingDisk disk;
        const qint64 size = FileLen(path());
        const FailingDisk::Fault noAnswer{SQLITE_IOERR_READ, ETIMEDOUT}, once{SQLITE_IOERR_READ, EIO, 1};
        for (const qint64 from : {qint64(0), qint64(16384), size / 2, size - 16384}) {
            FileCheck check(path());
            disk.readingFrom = from;
            disk.reading = noAnswer;
            QString text;
            try {
                check.run();
            } catch (const Error& failure) {
                text = failure.text();
            }
            QVERIFY2(text.contains(u"没有响应"_s), qPrintable(QString::number(from) + text));
            disk.reading = {};
            QCOMPARE(check.run(), Outcome::whole);
        }
        disk.readingFrom = size - 16384;
        disk.reading = once;
        QCOMPARE(FileCheck(path()).run(), Outcome::whole);

        overwrite(path(), size - 16384, QByteArray(16384, '\xff'));
        QCOMPARE(FileCheck(path()).run(), Outcome::damaged);
    }

    void wholeCatalogueIsFoundSo() {
        const OpenCheck check(path(), count(), atOnce);
        QTRY_COMPARE(whole_, 1);
        QCOMPARE(told_, 0);
    }

    /// A writer has to wait for readers when it stores what it has written, and fails when that takes too long. On
    /// this disk the check would.
    void writersPass() {
        closeCatalogue();
        FailingDisk disk;
        const auto closed = qScopeGuard([] { mekTp::catalogue = {}; });  // before the disk goes
        mekTp::catalogue = OpenDatabase(path());
        addLargePicture(8);
        FileCheck check(path());
        disk.pauseOfOthersMs = 10;
        std::atomic<bool> ended = false;
        Outcome outcome = Outcome::whole;
        std::jthread reader([&] {
            outcome = check.run();
            ended = true;
        });
        QTRY_VERIFY(disk.readByOthers > 3);
        QVERIFY(attempt([] { changeRow(u"tcsz"_s, {{u"像册标题"_s, u"new"_s}}); }));
        QTRY_VERIFY(ended);
        QVERIFY(outcome == Outcome::interrupted);
    }

    void interruptedCheckGoesOn() {
        std::atomic<bool> over = false;
        std::atomic<int> knocks = 0;
        std::jthread writer([&] {
            for (; !over; ++knocks) FileCheck::interruptAll();
        });
        addLargePicture(16);
        const OpenCheck check(path(), count(), atOnce);
        const int before = knocks;
        QTRY_VERIFY(knocks > before + 1000);
        over = true;
        QTRY_COMPARE(whole_, 1);
        QCOMPARE(told_, 0);
    }

    /// Waiting for its beginning, or in the midst of a file that it would read for a long time.
    void endsAtOnce() {
        closeCatalogue();
        FailingDisk disk;
        const auto closed = qScopeGuard([] { mekTp::catalogue = {}; });
        mekTp::catalogue = OpenDatabase(path());
        addLargePicture(8);
        constexpr int allPages = 512;
        for (const auto start : {0ms, 1ms, 60000ms}) {
            disk.pauseOfOthersMs = 5;
            disk.readByOthers = 0;
            {
                const OpenCheck check(path(), count(), {start, 1ms});
                if (start < 1s) QTRY_VERIFY(disk.readByOthers > 3);
            }
            QVERIFY(disk.readByOthers < allPages);
        }
        QCOMPARE(told_ + whole_, 0);
    }

    /// The engine's locks on a file are lost when the process closes a file of its own on it: the check must not.
    void locksOfAWriterOutliveTheCheck() {
        if (qEnvironmentVariableIsSet("TSAN_OPTIONS")) QSKIP("The sanitizer ends where the toolkit starts a program.");
        const Transaction writing(mekTp::catalogue);
        changeRow(u"tcsz"_s, {{u"像册标题"_s, u"new"_s}});
        {
            FileCheck check(path());
            QCOMPARE(check.run(), Outcome::whole);
        }
        QProcess other;
        other.start(u"sqlite3"_s, {path(), u"BEGIN IMMEDIATE"_s});
        QVERIFY(other.waitForFinished());
        QVERIFY(other.exitCode() != 0);
    }
};

const Registered<TestOpenCheck> registered;

}  // namespace

#include "open_check_test.moc"
