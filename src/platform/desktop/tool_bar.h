#pragma once

#include <QFrame>
#include <QHash>
#include <QIcon>
#include <QToolButton>
#include <functional>

/// A tool bar whose buttons are known by key. Each button shows the icon of its image key, at first the same as its
/// key. The program changes the image with a state, and reads it back as the state. Buttons are QToolButtons named by
/// the bar's object name, a colon and the key, so the bar needs its name first. The owner places them.
class ToolBar : public QFrame {
    Q_OBJECT

  public:
    using IconSource = std::function<QIcon(const QString& imageKey)>;

    ToolBar(IconSource icons, QWidget* parent);

    /// Adds a button at a place in twips on the bar.
    QToolButton* add(const QString& key, const QString& toolTip, int left, int top, int width, int height);
    QToolButton* button(const QString& key) const;

    /// Draws all buttons anew from another source.
    void setIconSource(IconSource icons);

    QString image(const QString& key) const;
    void setImage(const QString& key, const QString& imageKey);
    void setToolTip(const QString& key, const QString& text);
    bool isEnabled(const QString& key) const;
    void setEnabled(const QString& key, bool on);

    using QWidget::isEnabled;
    using QWidget::setEnabled;
    using QWidget::setToolTip;

  Q_SIGNALS:
    void buttonClicked(const QString& key);

  protected:
    void keyPressEvent(QKeyEvent* event) override;  ///< Enter clicks the button with the focus, as space does.

  private:
    IconSource icons_;
    QHash<QString, QToolButton*> buttons_;
};
