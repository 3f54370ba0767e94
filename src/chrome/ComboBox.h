// One choice out of a list that opens as a menu.
#pragma once

#include <QComboBox>

namespace tarnquill {

class Fade;

class ComboBox : public QComboBox {
    Q_OBJECT

public:
    // Items may carry a second, quieter text under this role.
    static constexpr int kDetailRole = Qt::UserRole + 100;

    explicit ComboBox(QWidget* parent = nullptr);

    // A symbol before the current item's text.
    void setSymbol(const QString& symbol);

    void showPopup() override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    QString m_symbol;
    Fade* m_hover;
};

} // namespace tarnquill
