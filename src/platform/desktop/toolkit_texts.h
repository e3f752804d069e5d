#pragma once

#include <QTranslator>

/// The toolkit's own buttons, dialogs and menus in Chinese, for a system without its translations, or with gaps in
/// them: what people of this program get to see of them. A text that is not here stays English.
class ToolkitTexts : public QTranslator {
    Q_OBJECT

  public:
    using QTranslator::QTranslator;

    QString translate(const char* context, const char* text, const char* comment, int count) const override;
    bool isEmpty() const override { return false; }
};
