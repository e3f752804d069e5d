#include "catalogue/picture_proof.h"

#include "../support/damage.h"
#include "../support/sample_catalogue.h"
#include "catalogue/background_hashing.h"
#include "catalogue/picture_hashes.h"
#include "platform/base/error.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int pictures = 13;  // in all albums of the sample

class TestPictureProof : public OpenedSampleTest {
    Q_OBJECT

    QString file() const { return mekTp::cataloguePath(); }
    QMap<qint64, Fault> prove() const {
        return storeProof(mekTp::catalogue,
                          proveAll(file(), allPictures(mekTp::catalogue), [](qsizetype, qint64) { return true; }));
    }
    QString text() const { return proofText(proofState(mekTp::catalogue)); }
    QString today() const { return QDate::currentDate().toString(Qt::ISODate); }
    QString copyAs(const QString& name) const {
        const QString path = sample_->file(name);
        QFile::remove(path);
        behindTheBack(file(), u"VACUUM INTO '%1'"_s.arg(path));
        return path;
    }

  private Q_SLOTS:
    void wholeCatalogue() {
        QCOMPARE(text(), QString());
        QVERIFY(prove().isEmpty());
        QCOMPARE(text(), u"13 张图片未变，"_s + today());
        behindTheBack(file(),
                      u"UPDATE lunq_hashes SET checked = '2026-01-02' WHERE id = (SELECT min(id) FROM lunq_hashes)"_s);
        QCOMPARE(text(), u"13 张图片未变，2026-01-02"_s);
    }

    /// Rot is told once with its place, and healed only by bytes of the same fingerprint.
    void rotIsFoundAndHealed() {
        prove();
        const QString good = copyAs(u"good.mdb"_s);
        const qint64 picture = rot(file(), u"tc01"_s, 4);
        const QString bad = copyAs(u"bad.mdb"_s);
        const QMap<qint64, Fault> found{{picture, Fault::changed}};
        QCOMPARE(prove(), found);
        QVERIFY(prove().isEmpty());
        QCOMPARE(text(), u"12 张图片未变，1 张有损坏，"_s + today());
        QCOMPARE(textOf(placeOf(mekTp::catalogue, picture)), u"《旅行》4"_s);

        QVERIFY(remediesFor(mekTp::catalogue, found, {sample_->file(u"none.mdb"_s)}).isEmpty());
        const Remedies wrong = remediesFor(mekTp::catalogue, found, {bad}).value(picture);
        QCOMPARE(wrong.size(), 1);
        QVERIFY_THROWS_EXCEPTION(Error, heal(mekTp::catalogue, picture, wrong));
        QCOMPARE(text(), u"12 张图片未变，1 张有损坏，"_s + today());
        heal(mekTp::catalogue, picture, remediesFor(mekTp::catalogue, found, {bad, good}).value(picture));
        QCOMPARE(text(), u"13 张图片未变，"_s + today());
        QVERIFY(prove().isEmpty());
        QCOMPARE(fieldOf(u"SELECT * FROM tc01 WHERE 序号 = 4"_s, u"图片"_s),
                 OpenDatabase(good).OpenRecordset(u"SELECT * FROM tc01 WHERE 序号 = 4"_s).Fields(u"图片"_s).Value());
    }

    void whatIsAcceptedIsTheTruthFromThenOn() {
        prove();
        const qint64 picture = rot(file(), u"tc01"_s, 4);
        prove();
        takeAsIs(mekTp::catalogue, picture);
        QVERIFY(prove().isEmpty());
        QCOMPARE(text(), u"13 张图片未变，"_s + today());
    }

    /// Each is decoded once; its fingerprint is right, so nothing else would ever tell.
    void picturesThatWereNeverWhole() {
        const QByteArray whole = pictureBytes({300, 200}, Qt::red);
        addRow(u"tc02"_s, {{u"序号"_s, 1}, {u"图片"_s, whole.first(whole.size() / 2)}});
        addRow(u"tc02"_s, {{u"序号"_s, 2}, {u"图片"_s, QByteArray("no picture")}});
        addRow(u"tc02"_s, {{u"序号"_s, 3}, {u"图片"_s, QByteArray("\0\0", 2)}});
        const QMap<qint64, Fault> found = prove();
        QCOMPARE(found.values(), (QList<Fault>{Fault::notWhole, Fault::notWhole}));
        QVERIFY(prove().isEmpty());
        QCOMPARE(text(), u"14 张图片未变，2 张有损坏，"_s + today());
        QVERIFY(remediesFor(mekTp::catalogue, found, {copyAs(u"same.mdb"_s)}).isEmpty());
        for (const qint64 picture : found.keys()) takeAsIs(mekTp::catalogue, picture);
        QVERIFY(prove().isEmpty());
        QCOMPARE(text(), u"16 张图片未变，"_s + today());
    }

    /// Also when those above were read first.
    void eachIsDecoded() {
        const auto left = [] { return std::ranges::count(allPictures(mekTp::catalogue), true, &ToProve::decodes); };
        const auto proveSome = [this](const std::vector<ToProve>& some) {
            storeProof(mekTp::catalogue, proveAll(file(), some, [](qsizetype, qint64) { return true; }));
        };
        const std::vector<ToProve> all = allPictures(mekTp::catalogue);
        proveSome({all.begin() + 5, all.end()});
        QCOMPARE(left(), pictures);
        proveSome({all.begin(), all.begin() + 5});
        QCOMPARE(left(), pictures - 5);
        prove();
        QCOMPARE(left(), 0);
    }

    /// A page of the file that the disk has lost: the engine cannot follow the value any more. That is told once, and
    /// keeps no other picture from being decoded only once.
    void lostPage() {
        constexpr int pageSize = 16384;
        QByteArray noise(20 * pageSize, Qt::Uninitialized);
        QRandomGenerator(7).fillRange(reinterpret_cast<quint32*>(noise.data()), noise.size() / 4);
        for (const bool isPrinted : {true, false}) {
            init();
            addRow(u"tc02"_s, {{u"序号"_s, 1}, {u"图片"_s, noise}});
            if (isPrinted) prove();
            addRow(u"tc02"_s, {{u"序号"_s, 2}, {u"图片"_s, pictureBytes({30, 20}, Qt::red)}});
            const QString path = file();
            mekTp::catalogue = {};
            QFile damaged(path);
            QVERIFY(damaged.open(QIODevice::ReadWrite));
            const qsizetype middle = damaged.readAll().indexOf(noise.sliced(10 * pageSize, 100));
            QVERIFY(middle > 0 && damaged.seek(middle / pageSize * pageSize));
            damaged.write(QByteArray(pageSize, '\0'));
            damaged.close();
            mekTp::openCatalogue();
            QCOMPARE(int(prove().size()), isPrinted ? 0 : 1);  // never a picture: known already
            QVERIFY(prove().isEmpty());
            QCOMPARE(proofState(mekTp::catalogue).damaged.values(), QList<Fault>{Fault::unreadable});
            QCOMPARE(text(), u"14 张图片未变，1 张有损坏，"_s + today());
            QVERIFY(std::ranges::none_of(allPictures(mekTp::catalogue), &ToProve::decodes));
            QVERIFY(picturesDue(mekTp::catalogue, QDate::currentDate()).empty());
        }
    }

    /// By the day of the last look; one that has not come yet tells that a clock was wrong.
    void whatIsDue() {
        prove();
        const QDate now = QDate::currentDate(), before = now.addDays(-BackgroundHashing::daysBetweenProofs);
        for (const auto& [day, due] : {std::pair{now, 0},
                                       {before, 0},
                                       {before.addDays(-1), pictures},
                                       {now.addDays(1), pictures},
                                       {now.addYears(30), pictures},
                                       {QDate(), pictures}}) {
            behindTheBack(file(), u"UPDATE lunq_hashes SET checked = '%1'"_s.arg(day.toString(Qt::ISODate)));
            QCOMPARE(int(picturesDue(mekTp::catalogue, before).size()), due);
        }
        // What is known to be damaged is not read again and again.
        rot(file(), u"tc01"_s, 1);
        prove();
        behindTheBack(file(), u"UPDATE lunq_hashes SET checked = '2001-01-01'"_s);
        QCOMPARE(int(picturesDue(mekTp::catalogue, before).size()), pictures - 1);
    }

    /// Between the look at a picture and the storing of what was found.
    void whatIsGoneCountsForNothing() {
        prove();
        const qint64 picture = rot(file(), u"tc01"_s, 4);
        const auto found = proveAll(file(), allPictures(mekTp::catalogue), [](qsizetype, qint64) { return true; });
        mekTp::catalogue.Execute(u"DELETE FROM tc01"_s);
        QVERIFY(storeProof(mekTp::catalogue, found).isEmpty());
        QVERIFY(!proofState(mekTp::catalogue).damaged.contains(picture));
        QVERIFY(!::prove(mekTp::catalogue, {.picture = picture}, [] { return true; }));
        QCOMPARE(text(), u"3 张图片未变，"_s + today());
    }

    void stopsWhenTold() {
        for (int i = 0; i < 40; ++i) addRow(u"tc02"_s, {{u"图片"_s, QByteArray(8 << 20, char('a' + i))}});
        std::vector<ToProve> all = allPictures(mekTp::catalogue);
        for (ToProve& one : all) one.decodes = false;
        QVERIFY(proveAll(file(), all, [](qsizetype, qint64) { return false; }).size() < all.size());
    }
};

const Registered<TestPictureProof> registered;

}  // namespace

#include "picture_proof_test.moc"
