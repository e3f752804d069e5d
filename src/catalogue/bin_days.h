#pragma once

#include <QDate>
#include <QString>
#include <vector>

/// For how long things have been in the bin, counted in days of use: the clock of a computer may be wrong, so neither
/// the time of an item nor a single date is believed. Each day on which the program is used counts for the days since
/// the one before it, but for a week at most, and only once. Behind each day stands what was in the bin by then.
class BinDays {
  public:
    BinDays() = default;
    /// From what `text` returned, or from nothing. Anything else counts as nothing.
    explicit BinDays(const QString& text);
    /// To be remembered: "2026-11-21:0:14 2026-11-22:1:20", each with its date, the days counted by then, and the
    /// newest removal.
    QString text() const;

    /// The program is used on that day, and this is the bin's newest removal.
    void use(const QDate& today, qint64 newestRemoval);
    /// All removals up to this one were in the bin for longer than so many days; 0 for none.
    qint64 inBinFor(int days) const;

  private:
    int daysCounted(const QDate& today) const;

    struct Day {
        QDate date;
        int counted = 0;
        qint64 newestRemoval = 0;
    };
    std::vector<Day> days_;  ///< As they came, which need not be the order of the dates.
};
