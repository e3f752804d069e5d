#pragma once

#include <QTabWidget>

/// A tab control. Controls on its pages are placed in twips from the upper left corner of the tab control itself, the
/// strip of captions included. `putOn` also brings a shared control to the page in front.
class TabControl : public QTabWidget {
    Q_OBJECT

  public:
    /// Height of the strip of captions and width of one caption, in twips.
    static constexpr int stripHeight = 375;
    static constexpr int captionWidth = 930;

    explicit TabControl(QWidget* parent = nullptr);

    /// The page is never smaller than the control has room for now.
    int addPage(const QString& caption);
    QWidget* page(int index) const { return widget(index); }

    /// Makes `page` the parent of a control and places it where it is in the smallest window; keeps whether it is
    /// shown.
    void putOn(int page, QWidget* control, int left, int top, int width, int height);
    void putOn(int page, QWidget* control, int left, int top);

  Q_SIGNALS:
    /// The mouse moved over the control: position in twips from its upper left corner, the strip of captions included.
    void mouseMovedAt(int x, int y);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
