// Times an album of 100,000 pictures in the main window: opening it, its last page, and its filters. The peer is the
// same query to the bare engine. Run by hand: bench_album [pictures]

#include "../tests/viewer/viewer_window.h"
#include "filling.h"
#include "platform/desktop/look.h"
#include "table.h"
#include "timing.h"

#include <SQLiteCpp/SQLiteCpp.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto topic = "album";
constexpr int rounds = 7;
constexpr int columns = 6;
constexpr int cells = columns * columns;
// So many pages push all others out of the cache of pictures.
constexpr int pagesBetween = 10;
// Fewer records would end before the day of the filter.
constexpr int fewestPictures = 60000;
const QString day = u"2003-12-01"_s;
constexpr int firstBehindDay = 335 * 24 * 6;

/// The small picture is the same in every record, but each has its own bytes of it.
void makeAlbum(int pictures) {
    mekTp::catalogue.Execute(u"DELETE FROM [tc01]"_s);
    const QByteArray bytes = pictureBytes({200, 150}, Qt::darkGreen);
    fillAlbum(mekTp::catalogue, u"tc01"_s, pictures, [&](int) { return bytes; });
}

/// The question to the engine alone, by a connection of its own, all its rows read. Median milliseconds.
double bare(const char* sql) {
    const SQLite::Database database(mekTp::cataloguePath().toStdString(), SQLite::OPEN_READONLY);
    database.getHandle();
    return medianMilliseconds(rounds, [&] {
        SQLite::Statement query(database, sql);
        while (query.executeStep())
            for (int i = 0; i < query.getColumnCount(); ++i) (void)query.getColumn(i).getBytes();
    });
}

class Album {
  public:
    explicit Album(ViewerWindow& viewer) : viewer_(viewer) { viewer.window->resize(1280, 900); }

    /// From the click until its handler has returned and the window is drawn.
    double time(const std::function<void()>& click, const std::function<void()>& before,
                const std::function<bool()>& isDone) {
        return medianMilliseconds(
            rounds,
            [&] {
                click();
                viewer_.window->grab();
            },
            before, isDone);
    }
    /// The same for a page without any picture in the cache, begun while another page is shown.
    double timePage(int firstPicture, const std::function<void()>& click, const std::function<void()>& before = {}) {
        return time(
            click,
            [&] {
                button(0);
                for (int page = 1; page <= pagesBetween; ++page) goTo(farPage + page);
                if (before) before();
            },
            [&] { return showsAllFrom(firstPicture); });
    }

    void open() { viewer_.openAlbum(1); }
    void button(int index) { Q_EMIT viewer_.image(element(u"imgAn"_s, index))->clicked(); }
    void key(const QString& key) { viewer_.key(key)->click(); }
    void enterDate(const QString& date) {
        key(u"rq"_s);
        viewer_.find<QRadioButton>(u"optRq(1)"_s)->click();
        viewer_.box(u"txtR1"_s)->setText(date);
    }
    void takeDate() { viewer_.find<QPushButton>(u"cmdRq"_s)->click(); }
    void anyDate() { viewer_.find<QPushButton>(u"cmdRy"_s)->click(); }

    bool isOpen() const { return viewer_.menu(u"mnuTg"_s)->isEnabled() && viewer_.panel(2).contains(u"(tc01)"_s); }

  private:
    static constexpr int farPage = 400;

    void goTo(int page) {
        viewer_.box(u"txtYh"_s)->setText(QString::number(page));
        Q_EMIT viewer_.box(u"txtYh"_s)->textEdited(QString::number(page));
        key(u"xs"_s);
    }
    bool showsAllFrom(int firstPicture) const {
        for (int cell = 0; cell < cells; ++cell)
            if (viewer_.image(element(u"imgXs"_s, cell))->picture().isNull()) return false;
        return viewer_.pictureIn(0) == firstPicture;
    }

    ViewerWindow& viewer_;
};

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    applyLook(application);
    const int pictures = argc > 1 ? std::max(fewestPictures, std::atoi(argv[1])) : 100000;
    const std::string of = " of " + std::to_string(pictures) + " pictures";
    ViewerWindow viewer([&] { makeAlbum(pictures); });
    Album album(viewer);

    row(topic,
        {.what = "open an album" + of,
         .measured = album.time([&] { album.open(); }, [&] { viewer.openAlbum(2); }, [&] { return album.isOpen(); }),
         .peer = "bare SQLite",
         .peerMeasured = bare("SELECT rowid FROM tc01 ORDER BY 序号"),
         .atMost = 300});
    album.open();
    viewer.chooseColumns(columns);
    row(topic, {.what = "last page" + of,
                .measured = album.timePage(pictures - cells + 1, [&] { album.key(u"hy"_s); }),
                .peer = "bare SQLite",
                .peerMeasured = bare("SELECT a.*, b.bytes FROM (SELECT * FROM tc01 ORDER BY 序号 DESC LIMIT 36) a, "
                                     "long_binary b WHERE b.id = a.图片"),
                .atMost = 50});
    row(topic, {.what = "filter by code" + of,
                .measured = album.timePage(7, [&] { album.button(2); }),
                .peer = "bare SQLite",
                .peerMeasured = bare("SELECT rowid FROM tc01 WHERE instr(编号, '2') > 0 ORDER BY 序号"),
                .atMost = 150});
    const auto ask = [&] { album.anyDate(), album.enterDate(day); };
    row(topic, {.what = "filter by date" + of,
                .measured = album.timePage(
                    firstBehindDay, [&] { album.takeDate(); }, ask),
                .peer = "bare SQLite",
                .peerMeasured = bare("SELECT rowid FROM tc01 WHERE date(日期) > '2003-12-01' ORDER BY 序号"),
                .atMost = 200});
}
