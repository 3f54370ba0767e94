// The program's button: plain in pane headers, outlined in toolbars, filled for the one main action; a
// toggle, a menu or an icon alone.
#pragma once

#include "chrome/Theme.h"

#include <QAbstractButton>
#include <QTimer>

#include <optional>

class QMenu;

namespace tarnquill {

class Fade;

class PaneButton : public QAbstractButton {
    Q_OBJECT

public:
    enum class Look { plain, outlined, primary };
    enum class Size { compact, control, alert }; // 24, 28 and 32 high

    // `symbol` may be empty. The title is the accessible name, also where only the icon is shown.
    PaneButton(const QString& title, const QString& symbol, Look look = Look::plain,
               QWidget* parent = nullptr);

    void setTitle(const QString& title);
    void setSymbol(const QString& symbol);
    [[nodiscard]] const QString& symbol() const { return m_symbol; }
    void setLook(Look look);
    void setSize(Size size);
    void setIconOnly(bool iconOnly);
    // Side of the icon; 14 without the call.
    void setIconExtent(int extent);
    [[nodiscard]] bool isIconOnly() const { return m_iconOnly; }

    // Looks "on", or "not the default". A checkable button does so by itself while it is checked.
    void setTinted(bool tinted);
    // Ink of the icon and the title; without a value that of the look.
    void setTint(std::optional<ColorRole> tint);

    // A second text after the title ("7/9"), and a number in a bubble (0: none).
    void setDetail(const QString& detail);
    void setCount(int count);

    // Shows a chevron; a click, or the Down key, opens the menu below the button. The caller owns the menu.
    void setMenu(QMenu* menu);
    [[nodiscard]] QMenu* menu() const { return m_menu; }
    void showMenu();

    // Shows a chevron too: a click opens something below the button that is no menu.
    void setOpensPopover(bool opens);

    // Says "Copied" for a moment. A button with a title keeps its width from the first time it is laid out:
    // call reserveCopied() at set-up. An icon-only button shows a check mark, with the word where `widens`
    // allows it.
    void reserveCopied();
    enum class Flash { inPlace, widens };
    void flashCopied(Flash flash = Flash::inPlace);
    [[nodiscard]] bool isFlashing() const { return m_flashing.isActive(); }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    struct Colors {
        QColor fill;
        QColor border;
        QColor label;
        QColor icon;
    };

    [[nodiscard]] bool isOn() const { return m_tinted || isChecked(); }
    [[nodiscard]] bool showsChevron() const { return m_menu != nullptr || m_opensPopover; }
    [[nodiscard]] bool showsTitle() const;
    [[nodiscard]] FontRole fontRole() const;
    [[nodiscard]] int padding() const;
    [[nodiscard]] int contentWidth() const;
    [[nodiscard]] int copiedWidth() const;
    [[nodiscard]] Colors colors() const;
    int paintLabel(QPainter& painter, const QRect& area, const QString& title, const QString& symbol, int gap,
                   const Colors& ink) const;
    void paintAccessories(QPainter& painter, int x, const Colors& ink) const;

    QString m_symbol;
    QString m_detail;
    Look m_look;
    Size m_size = Size::control;
    std::optional<ColorRole> m_tint;
    QMenu* m_menu = nullptr;
    int m_iconExtent = 14;
    int m_count = 0;
    bool m_opensPopover = false;
    bool m_iconOnly = false;
    bool m_tinted = false;
    bool m_reservesCopied = false;
    Flash m_flash = Flash::inPlace;
    QTimer m_flashing;
    Fade* m_hover;
};

} // namespace tarnquill
