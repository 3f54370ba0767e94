#include "chrome/MenuSurface.h"

#include "chrome/Painting.h"

#include <QApplication>
#include <QMenu>
#include <QMouseEvent>

#ifdef TARNQUILL_XCB
#include <xcb/xcb.h>
#endif

#include <cstdlib>
#include <memory>

namespace tarnquill::MenuSurface {
namespace {

constexpr int kRadius = 8;
constexpr int kGapBelowControl = 4;

// Under X11 a window without a compositing manager has no translucent pixels: they would be black.
bool windowsCanBeTranslucent() {
#ifdef TARNQUILL_XCB
    auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    if (xcb_connection_t* connection = x11 != nullptr ? x11->connection() : nullptr) {
        constexpr char kManager[] = "_NET_WM_CM_S0";
        const auto answer = [](auto* reply) {
            return std::unique_ptr<std::remove_pointer_t<decltype(reply)>, decltype(&std::free)>(reply,
                                                                                                 &std::free);
        };
        const auto atom = answer(xcb_intern_atom_reply(
            connection, xcb_intern_atom(connection, 0, sizeof(kManager) - 1, kManager), nullptr));
        if (!atom) {
            return false;
        }
        const auto owner = answer(xcb_get_selection_owner_reply(
            connection, xcb_get_selection_owner(connection, atom->atom), nullptr));
        return owner && owner->owner != XCB_NONE;
    }
#endif
    return true;
}

// The shadow belongs to the menu's window but is no part of the menu.
class Surface : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        auto& menu = static_cast<QMenu&>(*object);
        const int reach = shadowReach();
        if (event->type() == QEvent::Show) {
            menu.move(menu.pos() - QPoint(reach, reach));
        } else if (event->type() == QEvent::Resize && reach == 0) {
            QRegion corners(menu.rect());
            QBitmap mask(menu.size());
            mask.clear();
            QPainter painter(&mask);
            painter.setBrush(Qt::color1);
            painter.setPen(Qt::color1);
            painter.drawRoundedRect(menu.rect().adjusted(0, 0, -1, -1), kRadius, kRadius);
            painter.end();
            menu.setMask(mask);
        } else if (event->type() == QEvent::MouseButtonPress) {
            const QRect box = menu.rect().adjusted(reach, reach, -reach, -reach);
            if (!box.contains(static_cast<QMouseEvent*>(event)->position().toPoint())) {
                while (QWidget* popup = QApplication::activePopupWidget()) {
                    popup->close();
                }
                return true;
            }
        }
        return false;
    }
};

} // namespace

int shadowReach() {
    static const bool kTranslucent = windowsCanBeTranslucent();
    return kTranslucent ? Painting::kShadowReach : 0;
}

void prepare(QMenu& menu) {
    menu.setWindowFlags(menu.windowFlags() | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    menu.setAttribute(Qt::WA_TranslucentBackground, shadowReach() > 0);
    // The click that closes a menu does nothing else, so the control that opened it does not open it again.
    menu.setAttribute(Qt::WA_NoMouseReplay);
    menu.installEventFilter(new Surface(&menu));
}

void popUpBelow(QMenu& menu, const QWidget& control) {
    menu.setMinimumWidth(control.width() + 2 * shadowReach());
    menu.popup(control.mapToGlobal(QPoint(0, control.height() + kGapBelowControl)));
}

} // namespace tarnquill::MenuSurface
