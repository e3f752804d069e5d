#pragma once

#include "catalogue/conversion/table_taking.h"
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

/// Takes all records of some tables into albums that are there and empty. A record that cannot be read costs nothing
/// but what is lost of it; a failure of the target ends the run.
class AlbumTaking : public RunIntoDatabase {
  public:
    /// `share`: the part of the whole work that this is, in percent. `deed` is what the report calls it.
    AlbumTaking(const Database& old, const Database& target, std::vector<TakenAlbum> albums, int share,
                TableTaking::Change change = {}, QString deed = QStringLiteral("转换"));

    /// What the places of a run stand for.
    struct Place {
        std::size_t album;
        int row;
    };

  protected:
    const Database& target() const override { return target_; }
    void open() override { taking_.reset(); }
    Taken take(qsizetype place) override;
    int percentWith(qsizetype place) const override { return int((place + 1) * share_ / names().size()); }

  private:
    Place at(qsizetype place) const;

    const Database& old_;
    const Database& target_;
    std::vector<TakenAlbum> albums_;
    int share_;
    TableTaking::Change change_;
    QString deed_;
    std::optional<TableTaking> taking_;  ///< Of the album in hand.
    std::size_t inHand_ = 0;
};

/// How a report names a record of an album.
QStringList recordNames(const Database& old, const std::vector<TakenAlbum>& albums);
