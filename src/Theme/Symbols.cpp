#include "Theme/Symbols.h"

#include <algorithm>
#include <array>

namespace corvane {

namespace {

struct Glyph {
    QLatin1String name;
    char16_t codepoint;
};

// The font's own name of the glyph stands behind each. Some symbols share a glyph: the font draws them alike.
constexpr std::array glyphs{
    Glyph{QLatin1String("antenna.radiowaves.left.and.right"), u'\uE51E'}, // sensors
    Glyph{QLatin1String("arrow.down"), u'\uE5DB'}, // arrow_downward
    Glyph{QLatin1String("arrow.down.doc.fill"), u'\uF068'}, // sim_card_download
    Glyph{QLatin1String("arrow.down.right.circle.fill"), u'\uF181'}, // arrow_circle_down
    Glyph{QLatin1String("arrow.left"), u'\uE5C4'}, // arrow_back
    Glyph{QLatin1String("arrow.right"), u'\uE5C8'}, // arrow_forward
    Glyph{QLatin1String("arrow.right.circle.fill"), u'\uEAAA'}, // arrow_circle_right
    Glyph{QLatin1String("arrow.up"), u'\uE5D8'}, // arrow_upward
    Glyph{QLatin1String("arrow.up.forward"), u'\uF1E1'}, // north_east
    Glyph{QLatin1String("arrow.uturn.backward"), u'\uE166'}, // undo
    Glyph{QLatin1String("bolt.fill"), u'\uEA0B'}, // bolt
    Glyph{QLatin1String("bolt.slash"), u'\uE3E6'}, // flash_off
    Glyph{QLatin1String("bolt.slash.fill"), u'\uE3E6'}, // flash_off
    Glyph{QLatin1String("camera.viewfinder"), u'\uE3B4'}, // center_focus_strong
    Glyph{QLatin1String("checklist"), u'\uE6B1'}, // checklist
    Glyph{QLatin1String("checkmark"), u'\uE5CA'}, // check
    Glyph{QLatin1String("checkmark.circle"), u'\uE92D'}, // check_circle_outline
    Glyph{QLatin1String("checkmark.circle.fill"), u'\uE86C'}, // check_circle
    Glyph{QLatin1String("checkmark.square.fill"), u'\uE834'}, // check_box
    Glyph{QLatin1String("chevron.down"), u'\uE5CF'}, // expand_more
    Glyph{QLatin1String("doc.on.clipboard"), u'\uE14F'}, // content_paste
    Glyph{QLatin1String("doc.text"), u'\uE873'}, // description
    Glyph{QLatin1String("exclamationmark.triangle"), u'\uF083'}, // warning_amber
    Glyph{QLatin1String("exclamationmark.triangle.fill"), u'\uE002'}, // warning
    Glyph{QLatin1String("link"), u'\uE157'}, // link
    Glyph{QLatin1String("lock"), u'\uE899'}, // lock_outline
    Glyph{QLatin1String("lock.fill"), u'\uE897'}, // lock
    Glyph{QLatin1String("lock.open"), u'\uE898'}, // lock_open
    Glyph{QLatin1String("minus"), u'\uE15B'}, // remove
    Glyph{QLatin1String("minus.circle.fill"), u'\uE15C'}, // remove_circle
    Glyph{QLatin1String("network"), u'\uEB2F'}, // lan
    Glyph{QLatin1String("pencil"), u'\uE3C9'}, // edit
    Glyph{QLatin1String("play.fill"), u'\uE037'}, // play_arrow
    Glyph{QLatin1String("plus"), u'\uE145'}, // add
    Glyph{QLatin1String("plus.circle.fill"), u'\uE147'}, // add_circle
    Glyph{QLatin1String("plus.square.on.square"), u'\uE02E'}, // library_add
    Glyph{QLatin1String("point.3.connected.trianglepath.dotted"), u'\uE335'}, // device_hub
    Glyph{QLatin1String("rectangle.connected.to.line.below"), u'\uE322'}, // memory
    Glyph{QLatin1String("rectangle.grid.1x2"), u'\uE8E9'}, // view_agenda
    Glyph{QLatin1String("rectangle.grid.3x2"), u'\uE8F0'}, // view_module
    Glyph{QLatin1String("rectangle.on.rectangle.slash"), u'\uEF47'}, // browser_not_supported
    Glyph{QLatin1String("rectangle.split.3x3"), u'\uEFE7'}, // calendar_view_month
    Glyph{QLatin1String("rectangle.stack.badge.play"), u'\uE05F'}, // playlist_play
    Glyph{QLatin1String("scissors"), u'\uE14E'}, // content_cut
    Glyph{QLatin1String("slider.horizontal.3"), u'\uE429'}, // tune
    Glyph{QLatin1String("sparkles"), u'\uE65F'}, // auto_awesome
    Glyph{QLatin1String("square.and.arrow.down"), u'\uE171'}, // save_alt
    Glyph{QLatin1String("square.and.arrow.up.on.square"), u'\uE6B8'}, // ios_share
    Glyph{QLatin1String("square.dashed"), u'\uEBB6'}, // deselect
    Glyph{QLatin1String("square.grid.3x3"), u'\uE3EC'}, // grid_on
    Glyph{QLatin1String("square.grid.3x3.fill"), u'\uE3EC'}, // grid_on
    Glyph{QLatin1String("square.grid.4x3.fill"), u'\uE42A'}, // view_comfy
    Glyph{QLatin1String("tablecells"), u'\uF1BE'}, // table_view
    Glyph{QLatin1String("tag"), u'\uF05B'}, // sell
    Glyph{QLatin1String("trash"), u'\uE92E'}, // delete_outline
    Glyph{QLatin1String("waveform.path"), u'\uE1B8'}, // graphic_eq
    Glyph{QLatin1String("wifi.exclamationmark"), u'\uF066'}, // signal_wifi_statusbar_connected_no_internet_4
    Glyph{QLatin1String("wifi.slash"), u'\uE648'}, // wifi_off
    Glyph{QLatin1String("xmark"), u'\uE5CD'}, // close
};

} // namespace

std::optional<char16_t> symbolGlyph(QStringView name)
{
    const auto* const found =
        std::ranges::find_if(glyphs, [name](const Glyph& glyph) { return glyph.name == name; });
    return found == glyphs.end() ? std::nullopt : std::optional(found->codepoint);
}

QStringList symbolNames()
{
    QStringList names;
    std::ranges::transform(
        glyphs, std::back_inserter(names), [](const Glyph& glyph) { return QString(glyph.name); });
    return names;
}

} // namespace corvane
