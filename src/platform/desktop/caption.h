#pragma once

#include <QString>

/// A text as caption of a button or menu item on which "&" marks no key.
inline QString plainCaption(QString text) {
    return text.replace(u'&', QStringLiteral("&&"));
}
