#include "catalogue/runs/picture_names.h"

#include "../../support/run_all.h"
#include "platform/base/error.h"

#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

class TestPictureNames : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void replaceNumber() {
        const QList<std::pair<QString, int>> cases{{u"12.jpg"_s, 12},  {u"1.5.jpg"_s, 1},   {u"007.bmp"_s, 7},
                                                   {u" 3 .jpg"_s, 3},  {u"&H10.jpg"_s, 16}, {u"12a.jpg"_s, 12},
                                                   {u"photo.jpg"_s, 0}};
        for (const auto& [name, number] : cases) QCOMPARE(numberOfFile(name), number);
        QVERIFY_THROWS_EXCEPTION(Error, numberOfFile(u"99999999999.jpg"_s));
    }

    void namesThatStandForNumbers() {
        for (const QString& name : {u"12.jpg"_s, u"1.5.jpg"_s, u" 3 .jpg"_s, u"007.bmp"_s})
            QVERIFY2(standsForNumber(name), qPrintable(name));
        for (const QString& name : {u"1,234.jpg"_s, u"12a.jpg"_s, u"photo.jpg"_s, u"1 2.jpg"_s, u".jpg"_s})
            QVERIFY2(!standsForNumber(name), qPrintable(name));
    }

    void defaultNames() {
        QCOMPARE(defaultPictureName(FieldValue(), 7), u"07.jpg"_s);
        QCOMPARE(defaultPictureName(QString(), 7), u"07.jpg"_s);
        for (const QString& blanks : {u" "_s, u"  \u3000"_s}) QCOMPARE(defaultPictureName(blanks, 7), u"07.jpg"_s);
        QCOMPARE(defaultPictureName(u" ab "_s, 12), u"ab12.jpg"_s);
        QCOMPARE(defaultPictureName(u"/a"_s, 3), u"_a3.jpg"_s);
    }

    void completedNames() {
        const QList<std::pair<QString, QString>> cases{{u"photo"_s, u"photo.jpg"_s},
                                                       {u"photo.jpg"_s, u"photo.jpg"_s},
                                                       {u"photo.bmp"_s, u"photo.jpg"_s},
                                                       {u"photo.JPG"_s, u"photo.jpg"_s},
                                                       {u"a.b.jpg"_s, u"a.b.jpg"_s},
                                                       {u"a.b.bmp"_s, u"a.jpg"_s},
                                                       {QString(), QString()}};
        for (const auto& [typed, completed] : cases) QCOMPARE(completedPictureName(typed), completed);
    }

    void namesThatStandForNoFile() {
        for (const QString& name : {u"图 1.jpg"_s, u"a\\b.jpg"_s}) QCOMPARE(objectionToFileName(name), QString());
        for (const QString& name : {u".jpg"_s, u" \u3000.jpg"_s, QString()})
            QCOMPARE(objectionToFileName(name), u"请填写文件名！"_s);
        for (const QString& name : {u"a/b.jpg"_s, u"/b.jpg"_s}) QVERIFY(objectionToFileName(name).contains(u"“/”"_s));
        QVERIFY(!objectionToFileName(u"a\0b.jpg"_s).isEmpty());
    }
};

const Registered<TestPictureNames> registered;

}  // namespace

#include "picture_names_test.moc"
