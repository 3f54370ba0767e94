// The colour table: one row a role, light and dark.
#include "chrome/Theme.h"

#include <array>

namespace tarnquill {
namespace {

constexpr QRgb opaque(unsigned rgb) {
    return 0xff000000U | rgb;
}

constexpr QRgb translucent(unsigned rgb, unsigned percent) {
    return ((percent * 255 + 50) / 100 << 24U) | rgb;
}

struct Row {
    ColorRole role;
    QRgb light;
    QRgb dark;
};

constexpr std::array<Row, kColorRoleCount> kColors{{
    {ColorRole::background, opaque(0xffffff), opaque(0x1e1e1e)},
    {ColorRole::sidebar, opaque(0xf5f5f7), opaque(0x252527)},
    {ColorRole::raised, opaque(0xf5f5f7), opaque(0x2a2a2c)},
    {ColorRole::menu, opaque(0xffffff), opaque(0x2a2a2c)},
    {ColorRole::hover, opaque(0xefeff2), opaque(0x2f2f32)},
    {ColorRole::pressed, opaque(0xe4e4e9), opaque(0x3a3a3d)},
    {ColorRole::text, opaque(0x1d1d1f), opaque(0xe8e8ea)},
    {ColorRole::secondaryText, opaque(0x4a4a4f), opaque(0xc3c3c8)},
    {ColorRole::muted, opaque(0x6e6e73), opaque(0x9a9aa0)},
    {ColorRole::faint, opaque(0x76767b), opaque(0x8a8a90)},
    {ColorRole::border, opaque(0xd2d2d7), opaque(0x3a3a3c)},
    {ColorRole::hairline, opaque(0xe6e6ea), opaque(0x313134)},
    {ColorRole::field, opaque(0x8c8c92), opaque(0x75757b)},
    {ColorRole::track, opaque(0xececf0), opaque(0x2f2f32)},
    {ColorRole::pill, opaque(0xffffff), opaque(0x515156)},
    {ColorRole::pillBorder, opaque(0xd6d6dc), opaque(0x5c5c62)},
    {ColorRole::accent, opaque(0x0066cc), opaque(0x4aa3ff)},
    {ColorRole::accentText, opaque(0x0057ad), opaque(0x8cc6ff)},
    {ColorRole::accentTint, opaque(0xe3effb), opaque(0x1f3850)},
    {ColorRole::accentTintHover, opaque(0xd5e7fa), opaque(0x26445f)},
    {ColorRole::accentTintPressed, opaque(0xc6def7), opaque(0x2d5070)},
    {ColorRole::accentLine, opaque(0xa8ccf0), opaque(0x35618d)},
    {ColorRole::fill, opaque(0x0066cc), opaque(0x1f6fd0)},
    {ColorRole::fillHover, opaque(0x0058b0), opaque(0x1a63bd)},
    {ColorRole::fillPressed, opaque(0x004b97), opaque(0x1657a8)},
    {ColorRole::fillText, opaque(0xffffff), opaque(0xffffff)},
    {ColorRole::selectedRow, opaque(0xdbe9f9), opaque(0x263f59)},
    {ColorRole::textSelection, opaque(0xd7e8fa), opaque(0x264f78)},
    {ColorRole::findCurrent, opaque(0xffe54a), opaque(0xffe54a)},
    {ColorRole::findCurrentText, opaque(0x000000), opaque(0x000000)},
    {ColorRole::findOther, translucent(0xffe54a, 30), translucent(0xffe54a, 30)},
    {ColorRole::okText, opaque(0x176b2c), opaque(0x8ee39b)},
    {ColorRole::okTint, opaque(0xe4f3e8), opaque(0x1f3a28)},
    {ColorRole::okIcon, opaque(0x1f7f36), opaque(0x8ccc80)},
    {ColorRole::badText, opaque(0xb3123a), opaque(0xff8fa3)},
    {ColorRole::badTint, opaque(0xfce8ed), opaque(0x46202a)},
    {ColorRole::badIcon, opaque(0xd11a45), opaque(0xff5a7a)},
    {ColorRole::warnText, opaque(0x8a4b00), opaque(0xffc57a)},
    {ColorRole::warnTint, opaque(0xfcf0dd), opaque(0x43321a)},
    {ColorRole::warnIcon, opaque(0xb85000), opaque(0xff9230)},
    {ColorRole::neutralText, opaque(0x4a4a4f), opaque(0xc3c3c8)},
    {ColorRole::neutralTint, opaque(0xececf0), opaque(0x38383b)},
    {ColorRole::tooltip, opaque(0x2c2c2e), opaque(0x48484b)},
    {ColorRole::tooltipText, opaque(0xf5f5f7), opaque(0xf5f5f7)},
    {ColorRole::scroll, opaque(0xc4c4ca), opaque(0x5a5a5f)},
    {ColorRole::scrim, translucent(0x000000, 22), translucent(0x000000, 45)},
    {ColorRole::outline, translucent(0x000000, 10), translucent(0xffffff, 10)},
    {ColorRole::shadow, translucent(0x000000, 14), translucent(0x000000, 50)},
    {ColorRole::canvasDot, opaque(0xe9e9ee), opaque(0x2c2c2f)},
    {ColorRole::syntaxPunctuation, opaque(0x737373), opaque(0x8a8a8a)},
    {ColorRole::syntaxNumber, opaque(0xb85000), opaque(0xff9230)},
    {ColorRole::syntaxKeyword, opaque(0xd11a45), opaque(0xff375f)},
    {ColorRole::syntaxString, opaque(0x1f7f36), opaque(0x8ccc80)},
    {ColorRole::syntaxKey, opaque(0x007d8a), opaque(0x00d2e0)},
    {ColorRole::syntaxDiagramType, opaque(0xbf4709), opaque(0xfb923c)},
    {ColorRole::syntaxComment, opaque(0x646464), opaque(0x9a9a9a)},
    {ColorRole::link, opaque(0x0068da), opaque(0x419cff)},
    {ColorRole::segmentHeader, opaque(0x007d8a), opaque(0x00d2e0)},
    {ColorRole::segmentPayload, opaque(0x8a3fc7), opaque(0xc99bff)},
    {ColorRole::segmentSignature, opaque(0xb85000), opaque(0xff9230)},
}};

constexpr bool rowsAreInOrder() {
    for (int index = 0; index < kColorRoleCount; ++index) {
        if (static_cast<int>(kColors[static_cast<size_t>(index)].role) != index) {
            return false;
        }
    }
    return true;
}
static_assert(rowsAreInOrder());

} // namespace

QColor Theme::color(ColorRole role, bool dark) {
    const Row& row = kColors[static_cast<size_t>(role)];
    return QColor::fromRgba(dark ? row.dark : row.light);
}

} // namespace tarnquill
