#include "editor/document/edit_state.h"

#include <QHash>

using namespace Qt::Literals::StringLiterals;

QString codeOf(EditState state, const Operation* operation) {
    static const QHash<EditState, QString> codes{
        {EditState::nothing, u"00"_s},     {EditState::fromFile, u"w1"_s},   {EditState::fromAlbum, u"k1"_s},
        {EditState::buttonShape, u"a1"_s}, {EditState::buttonPart, u"a2"_s}, {EditState::buttonKeep, u"a3"_s},
        {EditState::buttonRow, u"a4"_s},   {EditState::copied, u"b"_s},
    };
    if (operation == nullptr) return codes.value(state);
    return state == EditState::asking ? operation->code : operation->doneCode;
}
