#include "map/svg_writer.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "map/map_presentation.h"
#include "map/scene_map.h"
#include "map/svg_sink.h"

namespace tos {

namespace {

char* Put(char* at, std::string_view text)
{
    return std::copy(text.begin(), text.end(), at);
}

// A fraction on its way into the document.
Coordinate Fmt(double v)
{
    return {v};
}

// A colour as CSS writes it.
std::string Css(std::uint32_t rgb)
{
    char buffer[8];
    std::snprintf(buffer, sizeof buffer, "#%06x", static_cast<unsigned>(rgb & 0xFFFFFF));
    return buffer;
}

// The status line and the reader's notes, broken at blanks into lines of at most
// width characters, for the text under the picture.
std::vector<std::string> CaptionLines(const SceneMap& map, std::size_t width)
{
    std::vector<std::string> lines;
    std::vector<std::string> paragraphs{StatusLine(map)};
    paragraphs.insert(paragraphs.end(), map.notes.begin(), map.notes.end());
    for (const std::string& paragraph : paragraphs) {
        std::string_view rest = paragraph;
        while (rest.size() > width) {
            std::size_t cut = rest.rfind(' ', width);
            if (cut == std::string_view::npos || cut == 0)
                cut = width;
            lines.emplace_back(rest.substr(0, cut));
            rest.remove_prefix(std::min(rest.size(), cut + (rest[cut] == ' ' ? 1 : 0)));
        }
        lines.emplace_back(rest);
    }
    return lines;
}

class Writer {
public:
    template <class Target> Writer(const SceneMap& map, Target& out) : map_(map), out_(out)
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
        // A character of the text is about one unit wide.
        captions_ = CaptionLines(map, static_cast<std::size_t>(std::max(width_ / unit_ - 4, 40.0)));
        captionTop_ = b.bottom + 8 * unit_;
        const double bottom = captionTop_ + 2.5 * unit_ * static_cast<double>(captions_.size());
        height_ = std::max(bottom + unit_, top_ + 75 * unit_) - top_;
    }

    void Write()
    {
        const double pixelWidth = 1200;
        out_ << "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
             << "<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\" width=\""
             << Fmt(pixelWidth) << "\" height=\"" << Fmt(pixelWidth * height_ / width_)
             << "\" viewBox=\"" << Fmt(left_) << " " << Fmt(top_) << " " << Fmt(width_) << " "
             << Fmt(height_) << "\">\n"
             << "<title>Scene map of ";
        out_.Escaped(map_.scene);
        out_ << "</title>\n";
        WriteStyle();
        WriteTerrain();
        WriteModels();
        WritePlacements();
        WriteAxes();
        WriteLegend();
        WriteScaleBar();
        WriteCaptions();
        out_ << "</svg>\n";
        out_.Flush();
    }

private:
    void WriteStyle()
    {
        namespace c = map_colour;
        const double u = unit_;
        out_ << "<style type=\"text/css\"><![CDATA[\n"
             << "text{font-family:sans-serif;font-size:" << Fmt(1.8 * u) << "px;fill:#222}\n"
             << ".terrain{fill:" << Css(c::kTerrain) << ";stroke:" << Css(c::kTerrainEdge)
             << ";stroke-width:" << Fmt(0.2 * u) << "}\n"
             << ".grid{fill:none;stroke:" << Css(c::kGrid) << ";stroke-width:" << Fmt(0.12 * u)
             << "}\n"
             << ".window{fill:" << Css(c::kMainTile) << ";fill-opacity:" << Fmt(kMainTileOpacity)
             << ";stroke:" << Css(c::kMainTileEdge) << ";stroke-width:" << Fmt(0.3 * u) << "}\n"
             << "circle{fill-opacity:" << Fmt(kFaintOpacity) << ";stroke:none}\n"
             << "circle.taken{fill-opacity:1}\n";
        for (const LegendEntry& entry : LegendOf(map_))
            if (entry.mark == LegendMark::Model)
                out_ << "." << KindClass(entry.kind) << "{fill:" << Css(KindColour(entry.kind))
                     << "}\n";
        out_ << ".placement,.folded{fill:none;stroke-width:" << Fmt(0.25 * u) << "}\n"
             << ".placement{stroke:" << Css(c::kCopy)
             << "}\n.placement.first{stroke:" << Css(c::kFirst) << ";stroke-width:" << Fmt(0.5 * u)
             << "}\n"
             << ".folded{stroke:" << Css(c::kFolded) << ";stroke-dasharray:" << Fmt(0.6 * u) << ","
             << Fmt(0.4 * u) << "}\n"
             << ".fold-tile{fill:none;stroke:" << Css(c::kFolded)
             << ";stroke-width:" << Fmt(0.3 * u) << ";stroke-dasharray:" << Fmt(1.2 * u) << ","
             << Fmt(0.8 * u) << "}\n"
             << ".axis{fill:none;stroke:" << Css(c::kAxis) << ";stroke-width:" << Fmt(0.25 * u)
             << "}\n"
             << ".scale{fill:none;stroke:" << Css(c::kAxis) << ";stroke-width:" << Fmt(0.35 * u)
             << "}\n"
             << "]]></style>\n";
    }

    void WriteTerrain()
    {
        const double side = map_.terrainSide;
        out_ << "<g id=\"terrain\">\n";
        if (side > 0) {
            out_ << "<rect class=\"terrain\" x=\"0\" y=\"0\" width=\"" << Fmt(side)
                 << "\" height=\"" << Fmt(side) << "\"/>\n";
            if (map_.tiles > 1) {
                out_ << "<path class=\"grid\" d=\"";
                for (int i = 1; i < map_.tiles; ++i) {
                    const Coordinate at = Fmt(side * i / map_.tiles);
                    out_ << "M" << at << " 0V" << Fmt(side) << "M0 " << at << "H" << Fmt(side);
                }
                out_ << "\"/>\n";
            }
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

    // A browser shows an element's title as its hover text.
    template <std::invocable<std::string&> Append> void Hover(Append append)
    {
        out_ << "><title>";
        out_.Escaped(append);
        out_ << "</title>";
    }

    // A circle as path data, so that a marker and its heading make one element.
    void Ring(double u, double v, double r)
    {
        const Coordinate rr = Fmt(r);
        out_ << "M" << Fmt(u - r) << " " << Fmt(v) << "a" << rr << " " << rr << " 0 1 0 "
             << Fmt(2 * r) << " 0a" << rr << " " << rr << " 0 1 0 " << Fmt(-2 * r) << " 0";
    }

    // The heading as a line from the point, in picture axes (3ds Max's y points up).
    void Heading(double u, double v, double lookX, double lookY, double length)
    {
        const double norm = std::hypot(lookX, lookY);
        if (!(norm > 0))
            return;
        out_ << "M" << Fmt(u) << " " << Fmt(v) << "l" << Fmt(lookX / norm * length) << " "
             << Fmt(-lookY / norm * length);
    }

    void WriteModels()
    {
        const MapNumberText r(0.45 * unit_);
        out_ << "<g id=\"models\">\n";
        for (const MapModel& m : map_.models) {
            // A large map is mostly these elements: the start of one goes in with one append.
            // The hover text shows the position too: its numbers are written once.
            const PositionText position(m);
            char head[128 + 3 * sizeof(MapNumberText)];
            char* at = Put(head, "<circle class=\"");
            at = Put(at, KindClass(m.kind));
            at = Put(at, m.taken ? " taken\" data-model=\"" : "\" data-model=\"");
            at = std::to_chars(at, head + sizeof head, m.number).ptr;
            at = Put(Put(at, "\" cx=\""), position.z.View());
            at = Put(Put(at, "\" cy=\""), position.x.View());
            at = Put(Put(at, "\" r=\""), r.View());
            out_ << std::string_view(head, static_cast<std::size_t>(at - head)) << "\"";
            Hover([&](std::string& out) { AppendModelDescription(out, m, position); });
            out_ << "</circle>\n";
            out_.Pass();
        }
        out_ << "</g>\n";
    }

    void WritePlacements()
    {
        const double r = 0.9 * unit_;
        const double arm = 2.2 * unit_;
        out_ << "<g id=\"placements\">\n";
        for (std::size_t i = 0; i < map_.placements.size(); ++i) {
            const MapPlacement& p = map_.placements[i];
            out_ << "<path class=\"placement" << (p.first ? " first" : "") << "\" data-model=\""
                 << p.number << "\" d=\"";
            Ring(p.at.z, p.at.x, r);
            Heading(p.at.z, p.at.x, p.lookX, p.lookY, arm);
            out_ << "\"";
            Hover([&](std::string& out) { AppendPlacementDescription(out, map_, i, false); });
            out_ << "</path>\n";
            out_.Pass();
            if (!p.folded)
                continue;
            out_ << "<path class=\"folded\" data-model=\"" << p.number << "\" d=\"M" << Fmt(p.at.z)
                 << " " << Fmt(p.at.x) << "L" << Fmt(p.folded->z) << " " << Fmt(p.folded->x);
            Ring(p.folded->z, p.folded->x, r);
            Heading(p.folded->z, p.folded->x, p.lookX, p.lookY, arm);
            out_ << "\"";
            Hover([&](std::string& out) { AppendPlacementDescription(out, map_, i, true); });
            out_ << "</path>\n";
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
             << "\">";
        out_.Escaped(text);
        out_ << "</text>\n";
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

    void Mark(const LegendEntry& entry, double x, double y)
    {
        const double u = unit_;
        switch (entry.mark) {
        case LegendMark::Model:
        case LegendMark::FaintModel:
            out_ << "<circle class=\"" << KindClass(entry.kind)
                 << (entry.mark == LegendMark::Model ? " taken" : "") << "\" cx=\"" << Fmt(x + u)
                 << "\" cy=\"" << Fmt(y) << "\" r=\"" << Fmt(0.8 * u) << "\"/>\n";
            return;
        case LegendMark::Copy:
        case LegendMark::First:
        case LegendMark::Folded:
            out_ << "<path class=\""
                 << (entry.mark == LegendMark::Copy    ? "placement"
                     : entry.mark == LegendMark::First ? "placement first"
                                                       : "folded")
                 << "\" d=\"";
            Ring(x + u, y, 0.9 * u);
            out_ << "\"/>\n";
            return;
        case LegendMark::MainTile:
        case LegendMark::FoldTile:
            out_ << "<rect class=\""
                 << (entry.mark == LegendMark::MainTile ? "window" : "fold-tile") << "\" x=\""
                 << Fmt(x) << "\" y=\"" << Fmt(y - u) << "\" width=\"" << Fmt(2 * u)
                 << "\" height=\"" << Fmt(2 * u) << "\"/>\n";
            return;
        }
    }

    void WriteLegend()
    {
        const double u = unit_;
        const double x = legendLeft_;
        double y = bounds_.top + 2 * u;
        out_ << "<g id=\"legend\">\n";
        Text(x, y, "Scene map");
        y += 4 * u;
        for (const LegendEntry& entry : LegendOf(map_)) {
            Mark(entry, x, y);
            Text(x + 3 * u, y + 0.6 * u, entry.caption);
            y += 3 * u;
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
        Text(x + length + u, y, MapNumber(length) + " scene units");
        out_ << "</g>\n";
    }

    // What the window shows under its picture: the status line and what the
    // reader would have said in message boxes.
    void WriteCaptions()
    {
        out_ << "<g id=\"status\">\n";
        double y = captionTop_;
        for (const std::string& line : captions_) {
            Text(bounds_.left, y, line);
            y += 2.5 * unit_;
        }
        out_ << "</g>\n";
    }

    const SceneMap& map_;
    SvgSink out_;
    PictureBounds bounds_;
    std::vector<std::string> captions_;
    double captionTop_ = 0;
    double unit_ = 1, margin_ = 0, legendLeft_ = 0, left_ = 0, top_ = 0, width_ = 1, height_ = 1;
};

} // namespace

void WriteSvg(const SceneMap& map, std::ostream& out)
{
    Writer(map, out).Write();
}

std::string SvgDocument(const SceneMap& map)
{
    std::string document;
    Writer(map, document).Write();
    return document;
}

} // namespace tos
