#include "map/svg_writer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <ostream>
#include <string>
#include <string_view>

#include "map/scene_map.h"

namespace tos {

namespace {

// Joins text pieces by appending; g++ 12 warns falsely about "literal" + std::string.
template <class... Parts> std::string Cat(const Parts&... parts)
{
    std::string out;
    (out += ... += parts);
    return out;
}

// Characters of the bytes 0x80-0x9F of Windows-1252; the rest equals Latin-1.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr std::array<ModelKind, 6> kKinds{ModelKind::Object, ModelKind::Billboard,
                                          ModelKind::Bale,   ModelKind::TripleBale,
                                          ModelKind::Drum,   ModelKind::Other};

// Text content or attribute value: markup characters escaped, bytes above ASCII
// as character references, control characters (which XML forbids) as "?".
std::string Escape(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (const char ch : text) {
        const auto b = static_cast<unsigned char>(ch);
        switch (ch) {
        case '&':
            out += "&amp;";
            continue;
        case '<':
            out += "&lt;";
            continue;
        case '>':
            out += "&gt;";
            continue;
        case '"':
            out += "&quot;";
            continue;
        default:
            break;
        }
        if (b >= 0x80) {
            const unsigned code = b <= 0x9F ? kHighControls[b - 0x80] : b;
            out += "&#" + std::to_string(code) + ";";
        } else if (b < 0x20 && b != '\t') {
            out += '?';
        } else {
            out += ch;
        }
    }
    return out;
}

// Shortest form to eight significant digits: enough for any scene coordinate.
std::string Fmt(double v)
{
    if (std::abs(v) < 1e-9)
        return "0";
    char buffer[32];
    const auto r = std::to_chars(buffer, buffer + sizeof buffer, v, std::chars_format::general, 8);
    return std::string(buffer, r.ptr);
}

// A circle as path data, so that a marker and its heading make one element.
std::string Ring(double u, double v, double r)
{
    const std::string rr = Fmt(r);
    return Cat("M", Fmt(u - r), " ", Fmt(v), "a", rr, " ", rr, " 0 1 0 ", Fmt(2 * r), " 0a", rr,
               " ", rr, " 0 1 0 ", Fmt(-2 * r), " 0");
}

// The heading as a line from the point, in picture axes (3ds Max's y points up).
std::string Heading(double u, double v, double lookX, double lookY, double length)
{
    const double norm = std::hypot(lookX, lookY);
    if (!(norm > 0))
        return "";
    return Cat("M", Fmt(u), " ", Fmt(v), "l", Fmt(lookX / norm * length), " ",
               Fmt(-lookY / norm * length));
}

class Writer {
public:
    Writer(const SceneMap& map, std::ostream& out) : map_(map), out_(out)
    {
        const PictureBounds b = BoundsOf(map);
        bounds_ = b;
        const double extent = std::max({b.right - b.left, b.bottom - b.top, 1.0});
        unit_ = extent / 100;
        margin_ = 8 * unit_;
        legendLeft_ = b.right + margin_;
        left_ = b.left - margin_;
        top_ = b.top - margin_;
        width_ = legendLeft_ + 48 * unit_ - left_;
        height_ = std::max(b.bottom + margin_ + 6 * unit_, top_ + 75 * unit_) - top_;
    }

    void Write()
    {
        const double pixelWidth = 1200;
        out_ << "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
             << "<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\" width=\""
             << Fmt(pixelWidth) << "\" height=\"" << Fmt(pixelWidth * height_ / width_)
             << "\" viewBox=\"" << Fmt(left_) << " " << Fmt(top_) << " " << Fmt(width_) << " "
             << Fmt(height_) << "\">\n"
             << "<title>Scene map of " << Escape(map_.scene) << "</title>\n";
        WriteNotes();
        WriteStyle();
        WriteTerrain();
        WriteModels();
        WritePlacements();
        WriteAxes();
        WriteLegend();
        WriteScaleBar();
        out_ << "</svg>\n";
    }

private:
    void WriteNotes()
    {
        if (map_.notes.empty())
            return;
        out_ << "<desc>";
        for (const std::string& note : map_.notes)
            out_ << Escape(note) << "\n";
        out_ << "</desc>\n";
    }

    void WriteStyle()
    {
        const double u = unit_;
        out_ << "<style type=\"text/css\"><![CDATA[\n"
             << "text{font-family:sans-serif;font-size:" << Fmt(1.8 * u) << "px;fill:#222}\n"
             << ".terrain{fill:#eef3e6;stroke:#6b7d5c;stroke-width:" << Fmt(0.2 * u) << "}\n"
             << ".grid{fill:none;stroke:#b4c2a5;stroke-width:" << Fmt(0.12 * u) << "}\n"
             << ".window{fill:#ffe9a8;fill-opacity:0.45;stroke:#c27c00;stroke-width:"
             << Fmt(0.3 * u) << "}\n"
             << "circle{fill-opacity:0.25;stroke:none}\n"
             << "circle.taken{fill-opacity:1}\n"
             << ".object{fill:#2b6cb0}\n.billboard{fill:#d53f8c}\n.bale{fill:#d69e2e}\n"
             << ".triple-bale{fill:#9c4221}\n.drum{fill:#2f855a}\n.other{fill:#718096}\n"
             << ".placement,.folded{fill:none;stroke-width:" << Fmt(0.25 * u) << "}\n"
             << ".placement{stroke:#e53e3e}\n.placement.first{stroke:#000;stroke-width:"
             << Fmt(0.5 * u) << "}\n"
             << ".folded{stroke:#805ad5;stroke-dasharray:" << Fmt(0.6 * u) << "," << Fmt(0.4 * u)
             << "}\n"
             << ".fold-tile{fill:none;stroke:#805ad5;stroke-width:" << Fmt(0.3 * u)
             << ";stroke-dasharray:" << Fmt(1.2 * u) << "," << Fmt(0.8 * u) << "}\n"
             << ".axis{fill:none;stroke:#000;stroke-width:" << Fmt(0.25 * u) << "}\n"
             << ".scale{fill:none;stroke:#000;stroke-width:" << Fmt(0.35 * u) << "}\n"
             << "]]></style>\n";
    }

    void WriteTerrain()
    {
        const double side = map_.terrainSide;
        out_ << "<g id=\"terrain\">\n";
        if (side > 0) {
            out_ << "<rect class=\"terrain\" x=\"0\" y=\"0\" width=\"" << Fmt(side)
                 << "\" height=\"" << Fmt(side) << "\"/>\n";
            std::string grid;
            for (int i = 1; i < map_.tiles; ++i) {
                const std::string at = Fmt(side * i / map_.tiles);
                grid += Cat("M", at, " 0V", Fmt(side), "M0 ", at, "H", Fmt(side));
            }
            if (!grid.empty())
                out_ << "<path class=\"grid\" d=\"" << grid << "\"/>\n";
        }
        if (!map_.mainTile && map_.tile > 0)
            out_ << "<rect id=\"fold-tile\" class=\"fold-tile\" x=\"0\" y=\"0\" width=\""
                 << Fmt(map_.tile) << "\" height=\"" << Fmt(map_.tile) << "\"/>\n";
        const double start = map_.windowStart;
        const double size = map_.windowEnd - start;
        if (size > 0)
            out_ << "<rect id=\"main-tile\" class=\"window\" x=\"" << Fmt(start) << "\" y=\""
                 << Fmt(start) << "\" width=\"" << Fmt(size) << "\" height=\"" << Fmt(size)
                 << "\"/>\n";
        out_ << "</g>\n";
    }

    void WriteModels()
    {
        const std::string r = Fmt(0.45 * unit_);
        out_ << "<g id=\"models\">\n";
        for (const MapModel& m : map_.models)
            out_ << "<circle class=\"" << KindClass(m.kind) << (m.taken ? " taken" : "")
                 << "\" data-model=\"" << m.number << "\" cx=\"" << Fmt(m.z) << "\" cy=\""
                 << Fmt(m.x) << "\" r=\"" << r << "\"/>\n";
        out_ << "</g>\n";
    }

    void WritePlacements()
    {
        const double r = 0.9 * unit_;
        const double arm = 2.2 * unit_;
        out_ << "<g id=\"placements\">\n";
        for (const MapPlacement& p : map_.placements) {
            out_ << "<path class=\"placement" << (p.first ? " first" : "") << "\" data-model=\""
                 << p.number << "\" d=\"" << Ring(p.at.z, p.at.x, r)
                 << Heading(p.at.z, p.at.x, p.lookX, p.lookY, arm) << "\"/>\n";
            if (p.folded)
                out_ << "<path class=\"folded\" data-model=\"" << p.number << "\" d=\"M"
                     << Fmt(p.at.z) << " " << Fmt(p.at.x) << "L" << Fmt(p.folded->z) << " "
                     << Fmt(p.folded->x) << Ring(p.folded->z, p.folded->x, r)
                     << Heading(p.folded->z, p.folded->x, p.lookX, p.lookY, arm) << "\"/>\n";
        }
        out_ << "</g>\n";
    }

    void Arrow(double u, double v, double du, double dv)
    {
        const double head = 1.2 * unit_;
        const double len = std::hypot(du, dv);
        const double ux = du / len, uy = dv / len;
        const double tu = u + du, tv = v + dv;
        out_ << "<path class=\"axis\" d=\"M" << Fmt(u) << " " << Fmt(v) << "L" << Fmt(tu) << " "
             << Fmt(tv) << "M" << Fmt(tu - head * ux - head * 0.5 * uy) << " "
             << Fmt(tv - head * uy + head * 0.5 * ux) << "L" << Fmt(tu) << " " << Fmt(tv) << "L"
             << Fmt(tu - head * ux + head * 0.5 * uy) << " "
             << Fmt(tv - head * uy - head * 0.5 * ux) << "\"/>\n";
    }

    void Text(double u, double v, const std::string& text, const char* anchor = "start")
    {
        out_ << "<text x=\"" << Fmt(u) << "\" y=\"" << Fmt(v) << "\" text-anchor=\"" << anchor
             << "\">" << Escape(text) << "</text>\n";
    }

    void WriteAxes()
    {
        const double u = unit_;
        const double length = 10 * u;
        out_ << "<g id=\"axes\">\n";
        // The scene's ground axes along the picture's edges.
        const double edge = bounds_.top - 3 * u;
        Arrow(bounds_.left, edge, length, 0);
        Text(bounds_.left + length + u, edge + 0.6 * u, "scene z");
        Arrow(bounds_.left - 3 * u, bounds_.top, 0, length);
        Text(bounds_.left - 3.5 * u, bounds_.top + length + 2.5 * u, "scene x", "middle");
        // 3ds Max's axes at its origin: x along scene z, y against scene x.
        const double c = map_.centre;
        Arrow(c, c, length, 0);
        Arrow(c, c, 0, -length);
        Text(c + length + u, c + 0.6 * u, "3ds Max x");
        Text(c, c - length - u, "3ds Max y", "middle");
        out_ << "<circle id=\"max-origin\" class=\"axis\" cx=\"" << Fmt(c) << "\" cy=\"" << Fmt(c)
             << "\" r=\"" << Fmt(0.7 * u) << "\"/>\n";
        Text(c + u, c + 2.5 * u, "3ds Max origin");
        out_ << "</g>\n";
    }

    void WriteLegend()
    {
        const double u = unit_;
        const double x = legendLeft_;
        double y = bounds_.top + 2 * u;
        auto line = [&](const std::string& text) {
            Text(x + 3 * u, y + 0.6 * u, text);
            y += 3 * u;
        };
        out_ << "<g id=\"legend\">\n";
        Text(x, y, "Scene map");
        y += 3 * u;
        std::string selection = map_.selection.empty() ? "no row selected" : map_.selection;
        line("Selection: " + selection);
        line(PlacementCount(map_.placements.size()) + ", " +
             (map_.mainTile ? "main tile" : "perimeter tiles, folded onto one tile"));
        y += u;
        for (const ModelKind kind : kKinds) {
            out_ << "<circle class=\"" << KindClass(kind) << " taken\" cx=\"" << Fmt(x + u)
                 << "\" cy=\"" << Fmt(y) << "\" r=\"" << Fmt(0.8 * u) << "\"/>\n";
            line(KindCaption(kind));
        }
        out_ << "<circle class=\"other\" cx=\"" << Fmt(x + u) << "\" cy=\"" << Fmt(y) << "\" r=\""
             << Fmt(0.8 * u) << "\"/>\n";
        line("Faint: left out of the lists by the load");
        out_ << "<path class=\"placement\" d=\"" << Ring(x + u, y, 0.9 * u) << "\"/>\n";
        line("Placement of a copy, with its heading");
        out_ << "<path class=\"placement first\" d=\"" << Ring(x + u, y, 0.9 * u) << "\"/>\n";
        line("First object (merged from the .max file)");
        out_ << "<path class=\"folded\" d=\"" << Ring(x + u, y, 0.9 * u) << "\"/>\n";
        line("Where a perimeter copy lands after folding");
        out_ << "<rect class=\"window\" x=\"" << Fmt(x) << "\" y=\"" << Fmt(y - u) << "\" width=\""
             << Fmt(2 * u) << "\" height=\"" << Fmt(2 * u) << "\"/>\n";
        line("Main tile window of the load");
        if (!map_.mainTile) {
            out_ << "<rect class=\"fold-tile\" x=\"" << Fmt(x) << "\" y=\"" << Fmt(y - u)
                 << "\" width=\"" << Fmt(2 * u) << "\" height=\"" << Fmt(2 * u) << "\"/>\n";
            line("The tile perimeter copies fold onto");
        }
        out_ << "</g>\n";
    }

    void WriteScaleBar()
    {
        const double u = unit_;
        const double length = ScaleBarLength((bounds_.right - bounds_.left) / 4);
        const double x = bounds_.left;
        const double y = bounds_.bottom + 4 * u;
        out_ << "<g id=\"scale-bar\">\n<path class=\"scale\" d=\"M" << Fmt(x) << " " << Fmt(y - u)
             << "V" << Fmt(y) << "H" << Fmt(x + length) << "V" << Fmt(y - u) << "\"/>\n";
        Text(x + length + u, y, Fmt(length) + " scene units");
        out_ << "</g>\n";
    }

    const SceneMap& map_;
    std::ostream& out_;
    PictureBounds bounds_;
    double unit_ = 1, margin_ = 0, legendLeft_ = 0, left_ = 0, top_ = 0, width_ = 1, height_ = 1;
};

} // namespace

void WriteSvg(const SceneMap& map, std::ostream& out)
{
    Writer(map, out).Write();
}

} // namespace tos
