#include "test_album.h"

#include <cmath>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

const QDateTime noon(QDate(2003, 10, 1), QTime(12, 30, 5));
const QDateTime midnight(QDate(2003, 10, 1), QTime(0, 0));

class ValuesTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestAlbum> album_;

    Recordset typed() const { return album_->open(u"typed"_s); }

  private Q_SLOTS:
    void init() {
        album_ = std::make_unique<TestAlbum>();
        album_->database.Execute(
            u"CREATE TABLE typed (l LONG, i SHORT, b BYTE, s SINGLE, d DOUBLE, y YESNO, "
            "t DATETIME, c TEXT(5), m MEMO, p LONGBINARY, g CURRENCY, n DECIMAL)"_s);
    }

    void keepsWhatIsPutIn() {
        const std::tuple<QString, FieldValue, FieldValue, QString> cases[] = {
            {u"l"_s, u" 1,234 "_s, 1234, u"1234|integer"_s},  // long from text
            {u"l"_s, 2.5, 2, u"2|integer"_s},                 // long rounds half to even
            {u"l"_s, 2147483647.0, std::numeric_limits<qint32>::max(), u"2147483647|integer"_s},  // long limit
            {u"b"_s, u"255"_s, 255, u"255|integer"_s},                                            // byte
            {u"s"_s, u"1,234.567"_s, 1234.567F, u"1234.567|real"_s},                              // single with commas
            {u"s"_s, 12.0F, 12.0F, u"12|integer"_s},                                              // single, whole
            {u"s"_s, 0.1F, 0.1F, u"0.1|real"_s},                                                  // single, small
            {u"d"_s, 0.1, 0.1, u"0.1|real"_s},                                                    // double
            {u"y"_s, true, true, u"1|integer"_s},                                                 // truth
            {u"y"_s, u"False"_s, false, u"0|integer"_s},                                          // truth from text
            {u"y"_s, {}, false, u"0|integer"_s},                                                  // truth is never Null
            {u"t"_s, noon, noon, u"2003-10-01 12:30:05|text"_s},                                  // date
            {u"t"_s, u"2003年10月1日"_s, midnight, u"2003-10-01 00:00:00|text"_s},                // day
            {u"c"_s, u"007"_s, u"007"_s, u"007|text"_s},                                          // code of digits
            {u"c"_s, u"一二三四五"_s, u"一二三四五"_s, u"一二三四五|text"_s},                     // longest text
            {u"c"_s, 7, u"7"_s, u"7|text"_s},                                                     // number in a text
            {u"c"_s, u""_s, u""_s, u"|text"_s},                                                   // empty text
            {u"m"_s, u"123"_s, u"123"_s, u"123|text"_s},                                          // memo of digits
            {u"m"_s, u"1e3"_s, u"1e3"_s, u"1e3|text"_s},                                          // memo like a number
            {u"g"_s, u"1,234.5678"_s, 1234.5678, u"1234.5678|real"_s},                            // amount
            {u"g"_s, u"12"_s, 12.0, u"12|integer"_s},                                             // whole amount
            {u"g"_s, u" -922,337,203,685,477.5808 "_s, u"-922337203685477.5808"_s,
             u"-922337203685477.5808|blob"_s},                                                       // largest amount
            {u"g"_s, u"123456789012.34565"_s, u"123456789012.3456"_s, u"123456789012.3456|blob"_s},  // half to even
            {u"g"_s, u"123456789012.34575"_s, u"123456789012.3458"_s, u"123456789012.3458|blob"_s},  // half to even
            {u"g"_s, u"-0.0000123456789012345"_s, 0.0, u"0|integer"_s},  // less than it holds
            {u"n"_s, u"0.5"_s, 0.5, u"0.5|real"_s},                      // short decimal
            {u"n"_s, u"007.9228162514264337593543950330"_s, u"7.922816251426433759354395033"_s,
             u"7.922816251426433759354395033|blob"_s},                                           // all its digits
            {u"n"_s, u"1234567890123456"_s, u"1234567890123456"_s, u"1234567890123456|blob"_s},  // long whole number
            {u"n"_s, u"1e30"_s, 1e30, u"1.0e+30|real"_s},                                        // in another way
            {u"l"_s, {}, {}, u"|null"_s},                                                        // Null
            {u"t"_s, {}, {}, u"|null"_s},                                                        // Null date
        };
        for (const auto& [column, given, back, inTheFile] : cases) {
            album_->shell(u"DELETE FROM typed"_s);
            Recordset set = typed();
            set.AddNew();
            set.Fields(column).SetValue(given);
            QCOMPARE(set.Fields(column).Value(), back);
            set.Update();
            set.MoveLast();
            QCOMPARE(set.Fields(column).Value(), back);
            QCOMPARE(album_->shell(u"SELECT %1, typeof(%1) FROM typed"_s.arg(column)), inTheFile);
        }
    }

    void refusesWhatDoesNotFit() {
        const std::tuple<QString, FieldValue, QString> cases[] = {
            {u"l"_s, u"12a"_s, u"12a"_s},                                   // no number
            {u"l"_s, u""_s, u"数字"_s},                                     // empty is no number
            {u"l"_s, u"2147483648"_s, u"2147483648"_s},                     // 32 bits
            {u"l"_s, std::nan(""), u"不是数字"_s},                          // not a number
            {u"s"_s, std::nan(""), u"不是数字"_s},                          // not a single number
            {u"i"_s, 32768, u"32768"_s},                                    // 16 bits
            {u"b"_s, -1, u"-1"_s},                                          // byte below
            {u"s"_s, 1e39, u"过大"_s},                                      // single too large
            {u"y"_s, u"maybe"_s, u"maybe"_s},                               // no truth
            {u"t"_s, u"2003-02-30"_s, u"2003-02-30"_s},                     // no date
            {u"t"_s, 37895, u"37895"_s},                                    // number as date
            {u"c"_s, u"一二三四五六"_s, u"一二三四五六"_s},                 // text too long
            {u"m"_s, QByteArray("\xff\xd8"), u"文本"_s},                    // bytes in a text
            {u"p"_s, u"path"_s, u"path"_s},                                 // text in a picture
            {u"g"_s, u"922337203685477.5808"_s, u"超出范围"_s},             // amount too large
            {u"n"_s, u"12345678901234567890123456789"_s, u"最多 28 位"_s},  // decimal too long
            {u"n"_s, u"12345678901234567.8.9"_s, u"不是数字"_s},            // two points
        };
        for (const auto& [column, given, named] : cases) {
            Recordset set = typed();
            set.AddNew();
            const auto put = [&, &column = column, &given = given] { set.Fields(column).SetValue(given); };
            QVERIFY(failsSaying(put, {u"“%1”"_s.arg(column), named}));
            set.Update();
            set.MoveLast();
            QVERIFY(set.Fields(column).Value() == (column == u"y" ? FieldValue(false) : FieldValue()));
        }
    }

    void columnsTellTheirTypes() {
        const Recordset set = typed();
        QStringList types;
        for (int i = 0; i < set.FieldCount(); ++i) {
            const Field field = set.Fields(i);
            types << u"%1 %2 %3"_s.arg(field.Name()).arg(int(field.Type())).arg(field.Size());
        }
        QCOMPARE(types.join(u", "),
                 u"l 4 4, i 3 2, b 2 1, s 6 4, d 7 8, y 1 1, t 8 8, c 10 5, m 12 0, p 11 0, "
                 "g 5 8, n 20 16"_s);
    }

    void foreignContentComesAsItIs() {
        album_->shell(u"INSERT INTO typed (l, t, s, n) VALUES (5000000000, 'some day', 'much', 1234567890123456789)"_s);
        const Recordset set = typed();
        for (const auto& [column, value] : {std::pair{u"l"_s, FieldValue(5e9)},
                                            {u"t"_s, FieldValue(u"some day"_s)},
                                            {u"n"_s, FieldValue(u"1234567890123456789"_s)},
                                            {u"s"_s, FieldValue(u"much"_s)}})
            QCOMPARE(set.Fields(column).Value(), value);
    }

    void variantsConvert() {
        QCOMPARE(FieldValue(1234.567F).toText(), u"1234.567"_s);
        QCOMPARE(FieldValue(0.1 + 0.2).toText(), u"0.3"_s);
        QCOMPARE(FieldValue(midnight).toText(), u"2003-10-01"_s);
        QCOMPARE(FieldValue(noon).toText(), u"2003-10-01 12:30:05"_s);
        QCOMPARE(FieldValue(true).toText(), u"True"_s);
        QCOMPARE(FieldValue(u"3.5"_s).toInteger(), 4);
        QCOMPARE(FieldValue().textOr(u"-"_s), u"-"_s);
        QCOMPARE(FieldValue(u"2003/10/1"_s).toDate(), midnight);
        QVERIFY(FieldValue(-1).toBool() && !FieldValue(u"0"_s).toBool());
        QVERIFY(fails([] { FieldValue().toText(); }) && fails([] { FieldValue().toInteger(); }));
        QVERIFY(fails([] { FieldValue(3e9).toInteger(); }) && fails([] { FieldValue(noon).toDouble(); }));
        QVERIFY(fails([] { FieldValue(u"x"_s).toBool(); }) && fails([] { FieldValue(1).toBytes(); }));
    }
};

static Registered<ValuesTest> registered;

}  // namespace

#include "value_conversion_test.moc"
