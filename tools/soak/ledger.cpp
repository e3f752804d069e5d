#include "soak/ledger.h"

using namespace Qt::Literals::StringLiterals;

void Ledger::hear(const QString& line) {
    const QStringList words = line.split(u' ');
    const QString& verb = words.front();
    const auto is = [&](const QString& name, int count) { return verb == name && words.size() == count + 1; };
    if (is(u"add"_s, 2)) pictureIs(words[1], words[2], Certainty::possible);
    if (is(u"added"_s, 2)) pictureIs(words[1], words[2], Certainty::sure);
    if (is(u"met"_s, 2)) {
        --places_[words[1]].strangers;
        pictureIs(words[1], words[2], Certainty::sure);
    }
    if (is(u"drop"_s, 2)) pictureIs(words[1], words[2], Certainty::possible);
    if (is(u"dropped"_s, 2)) pictureIs(words[1], words[2], Certainty::gone);
    if (is(u"turn"_s, 4) || is(u"turned"_s, 4)) turnIs(words.mid(1), verb == u"turned");
    if (verb == u"renumber" && words.size() > 2) places_[words[1]].numberings = words.mid(2);
    if (is(u"renumbered"_s, 2)) places_[words[1]].numberings = words.mid(2);
    if (is(u"forget"_s, 1)) places_[words[1]].numberings.clear();
    if (is(u"create"_s, 1) || is(u"remove"_s, 1)) places_[words[1]].certainty = Certainty::possible;
    if (is(u"created"_s, 1)) places_[words[1]].certainty = Certainty::sure;
    if (is(u"removed"_s, 1)) places_[words[1]].certainty = Certainty::gone;
}

void Ledger::pictureIs(const QString& place, const QString& picture, Certainty certainty) {
    Place& where = places_[place];
    where.numberings.clear();
    if (picture == unknown)
        ++where.strangers;
    else
        where.pictures[picture] = certainty;
}

void Ledger::turnIs(const QStringList& words, bool done) {
    const Turn turn{words[0], words[1], words[2], words[3]};
    if (!done) {
        pictureIs(turn.fromPlace, turn.fromPicture, Certainty::possible);
        pictureIs(turn.toPlace, turn.toPicture, Certainty::possible);
        turns_ << turn;
        return;
    }
    turns_.removeIf([&](const Turn& one) {
        const bool same = one.fromPlace == turn.fromPlace && one.fromPicture == turn.fromPicture;
        if (same && one.toPicture == unknown) --places_[one.toPlace].strangers;
        return same;
    });
    pictureIs(turn.fromPlace, turn.fromPicture, Certainty::gone);
    if (turn.fromPlace == bin) places_[bin].pictures.remove(turn.fromPicture);  // it may come again untold
    pictureIs(turn.toPlace, turn.toPicture, Certainty::sure);
}

QStringList Ledger::faults(const Found& found) const {
    QStringList faults;
    for (auto place = places_.begin(); place != places_.end(); ++place) {
        const bool isThere = found.contains(place.key());
        if (place->certainty == Certainty::sure && !isThere) faults << place.key() + u" is lost"_s;
        if (place->certainty == Certainty::gone && isThere) faults << place.key() + u" has come back"_s;
        if (place->certainty != Certainty::gone && isThere)
            comparePictures(place.key(), *place, found[place.key()], faults);
    }
    for (const QString& name : found.keys())
        if (!places_.contains(name) && name != bin) faults << name + u" has come from nowhere"_s;
    for (const Turn& turn : turns_)
        if (const QString fault = faultOf(turn, found); !fault.isEmpty()) faults << fault;
    return faults;
}

void Ledger::comparePictures(const QString& name, const Place& place, const PlaceFound& found,
                             QStringList& faults) const {
    for (auto picture = place.pictures.begin(); picture != place.pictures.end(); ++picture) {
        const auto times = found.pictures.count(picture.key());
        if (*picture == Certainty::sure && times == 0) faults << u"%1: %2 is lost"_s.arg(name, picture.key());
        if (*picture == Certainty::gone && times > 0) faults << u"%1: %2 has come back"_s.arg(name, picture.key());
        if (times > 1 && name != bin) faults << u"%1: %2 is there %3 times"_s.arg(name, picture.key()).arg(times);
    }
    QStringList strangers = found.pictures;
    strangers.removeIf([&](const QString& picture) { return place.pictures.contains(picture); });
    if (strangers.size() > place.strangers && name != bin)
        faults << u"%1: nobody knows %2"_s.arg(name, strangers.join(u", "));
    if (!place.numberings.isEmpty() && !place.numberings.contains(found.numbers))
        faults << u"%1: renumbered by half"_s.arg(name);
}

QStringList Ledger::strangersIn(const QString& place, const Found& found) const {
    QStringList strangers = found.value(place).pictures;
    strangers.removeIf([&](const QString& picture) { return places_.value(place).pictures.contains(picture); });
    return strangers;
}

/// A picture that moves from one place to another has to be in one of them at any time.
QString Ledger::faultOf(const Turn& turn, const Found& found) const {
    if (found.value(turn.fromPlace).pictures.contains(turn.fromPicture)) return {};
    const bool arrived = turn.toPicture == unknown ? !strangersIn(turn.toPlace, found).isEmpty()
                                                   : found.value(turn.toPlace).pictures.contains(turn.toPicture);
    if (arrived) return {};
    return u"%1 is lost between %2 and %3"_s.arg(turn.fromPicture, turn.fromPlace, turn.toPlace);
}

void Ledger::adopt(const Found& found) {
    *this = {};
    for (auto place = found.begin(); place != found.end(); ++place) {
        Place& known = places_[place.key()];
        for (const QString& picture : place->pictures) known.pictures[picture] = Certainty::sure;
    }
}
