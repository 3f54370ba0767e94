// The type table: one row a role.
#include "chrome/Theme.h"

#include <array>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

enum class Face { sans, mono };

struct Row {
    FontRole role;
    Face face;
    int pixels;
    int line; // 0: as the typeface has it
    QFont::Weight weight;
    double tracking; // in pixels
};

constexpr std::array<Row, kFontRoleCount> kFonts{{
    {FontRole::toolTitle, Face::sans, 15, 20, QFont::DemiBold, -0.15},
    {FontRole::productName, Face::sans, 14, 20, QFont::DemiBold, 0},
    {FontRole::paneRole, Face::sans, 13, 20, QFont::DemiBold, 0},
    {FontRole::sidebarRow, Face::sans, 13, 20, QFont::Medium, 0},
    {FontRole::sidebarRowSelected, Face::sans, 13, 20, QFont::DemiBold, 0},
    {FontRole::body, Face::sans, 13, 20, QFont::Normal, 0},
    {FontRole::control, Face::sans, 12, 16, QFont::Medium, 0},
    {FontRole::controlSelected, Face::sans, 12, 16, QFont::DemiBold, 0},
    {FontRole::note, Face::sans, 12, 16, QFont::Normal, 0},
    {FontRole::tableHeader, Face::sans, 12, 16, QFont::DemiBold, 0},
    {FontRole::tableNumber, Face::mono, 12, 16, QFont::Normal, 0},
    {FontRole::sidebarSection, Face::sans, 11, 16, QFont::DemiBold, 0.66},
    {FontRole::groupTitle, Face::sans, 11, 16, QFont::DemiBold, 0.22},
    {FontRole::badge, Face::sans, 11, 12, QFont::DemiBold, 0.33},
    {FontRole::editor, Face::mono, 13, 0, QFont::Normal, 0},
    {FontRole::editorBold, Face::mono, 13, 0, QFont::Bold, 0},
    {FontRole::lineNumber, Face::mono, 12, 0, QFont::Normal, 0},
    {FontRole::timestampInput, Face::mono, 22, 32, QFont::Normal, 0},
    {FontRole::messageTitle, Face::sans, 15, 20, QFont::DemiBold, 0},
    {FontRole::alertButton, Face::sans, 13, 20, QFont::Medium, 0},
}};

constexpr bool rowsAreInOrder() {
    for (int index = 0; index < kFontRoleCount; ++index) {
        if (static_cast<int>(kFonts[static_cast<size_t>(index)].role) != index) {
            return false;
        }
    }
    return true;
}
static_assert(rowsAreInOrder());

const Row& rowOf(FontRole role) {
    return kFonts[static_cast<size_t>(role)];
}

} // namespace

QFont Theme::font(FontRole role) const {
    const Row& row = rowOf(role);
    const bool mono = row.face == Face::mono;
    QFont font(mono ? u"JetBrains Mono"_s : u"Inter"_s);
    font.setPixelSize(row.pixels);
    font.setWeight(row.weight);
    font.setLetterSpacing(QFont::AbsoluteSpacing, row.tracking);
    font.setStyleHint(mono ? QFont::Monospace : QFont::SansSerif,
                      QFont::StyleStrategy(QFont::PreferAntialias));
    if (mono) {
        font.setStyleStrategy(QFont::StyleStrategy(QFont::PreferAntialias | QFont::PreferNoShaping));
        font.setFixedPitch(true);
    }
    return font;
}

int Theme::lineHeight(FontRole role) {
    return rowOf(role).line;
}

} // namespace tarnquill
