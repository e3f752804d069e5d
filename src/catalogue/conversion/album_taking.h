#pragma once

#include "catalogue/conversion/table_taking.h"
#include "catalogue/runs/read_ahead.h"
#include "catalogue/runs/run_in_turn.h"

#include <optional>

/// A table of pictures of an old catalogue, and the album that takes them.
struct TakenAlbum {
    QString table;
    QString album;
    int records = 0;
    QString title = {};
    QString source = {};  ///< The statement that lists the records; empty for all of the table.
};

/// Takes all records of some tables into albums that are there and empty. The next records are read in a second thread
/// while one is stored. A record that cannot be read costs nothing but what is lost of it; a failure of the target ends
/// the run.
class AlbumTaking : public RunIntoDatabase {
  public:
    struct Order {
        const Database& old;
        const Database& target;
        std::vector<TakenAlbum> albums;
        int share;  ///< The part of the whole work that this is, in percent.
        TableTaking::Change change = {};
        QString deed = QStringLiteral("转换");     ///< What the report calls it.
        std::function<Database()> openAgain = {};  ///< The old one for the thread, where it takes more than its name.
    };
    explicit AlbumTaking(Order order);

  protected:
    const Database& target() const override { return order_.target; }
    void open() override { taking_.reset(); }
    bool isAtHand(qsizetype place) const override { return ahead_.isAtHand(place); }
    Taken take(qsizetype place) override;
    int percentWith(qsizetype place) const override { return int((place + 1) * order_.share / names().size()); }

  private:
    /// What the places of a run stand for.
    struct Place {
        std::size_t album;
        int row;
    };
    struct Ready {
        OldRecord record;
        QString note;  ///< About the picture.
    };
    class Reader;
    static std::vector<std::vector<TakenColumn>> columnsOf(const Order& order);
    Place at(qsizetype place) const;

    Order order_;
    std::vector<std::vector<TakenColumn>> columns_;  ///< Those of each album that come over.
    std::optional<TableTaking> taking_;              ///< Of the album in hand.
    std::size_t inHand_ = 0;
    ReadAhead<Ready> ahead_;  ///< Last: its thread uses the others.
};

/// How a report names a record of an album.
QStringList recordNames(const Database& old, const std::vector<TakenAlbum>& albums);
