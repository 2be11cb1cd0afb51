#include "flexgrid/grid_painter.h"

#include "widgets/drawing.h"

#include <algorithm>
#include <array>

namespace obk {

namespace {

constexpr char16_t checkFont[] = u"webdings";
constexpr double checkFontSize = 12;  // points

struct Placement {
    HorizontalAlignment horizontal;
    VerticalAlignment vertical;
};

constexpr Placement centred{HorizontalAlignment::centre, VerticalAlignment::centre};

Placement placementOf(CellAlignment alignment) {
    const auto number = static_cast<int32_t>(alignment);
    constexpr std::array horizontal{HorizontalAlignment::left, HorizontalAlignment::centre,
                                    HorizontalAlignment::right};
    constexpr std::array vertical{VerticalAlignment::top, VerticalAlignment::centre,
                                  VerticalAlignment::bottom};
    return {horizontal[static_cast<size_t>(number / 3 % 3)], vertical[static_cast<size_t>(number % 3)]};
}

PixelRect placed(PixelSize size, const PixelRect& rect, Placement placement) {
    const int32_t freeWidth = rect.width() - size.width, freeHeight = rect.height() - size.height;
    const int32_t x = placement.horizontal == HorizontalAlignment::left     ? 0
                      : placement.horizontal == HorizontalAlignment::centre ? freeWidth / 2
                                                                            : freeWidth;
    const int32_t y = placement.vertical == VerticalAlignment::top      ? 0
                      : placement.vertical == VerticalAlignment::centre ? freeHeight / 2
                                                                        : freeHeight;
    return {rect.left + x, rect.top + y, rect.left + x + size.width, rect.top + y + size.height};
}

// In this font the letter stands for a check mark; drawn, it is there and sharp without the font too.
bool isCheckFont(const CellStyle& style) {
    return style.fontName && equalIgnoringCase(*style.fontName, checkFont);
}

PixelRect checkMarkPlace(const Canvas& canvas, const PixelRect& rect, double points, Placement placement) {
    const int32_t em = canvas.dpi().toPixels(Twips{points * 20});
    const int32_t size = std::max(0, std::min({em, rect.width(), rect.height()}));
    return placed({size, size}, rect, placement);
}

}  // namespace

HorizontalAlignment horizontalOf(CellAlignment alignment) {
    return placementOf(alignment).horizontal;
}

FontDescription cellFont(const FontDescription& usual, const CellStyle& style) {
    FontDescription font = usual;
    if (style.fontName) {
        constexpr int16_t anyCharacters = 1;  // fonts of symbols have none of the usual character sets
        font.name = *style.fontName;
        font.charset = anyCharacters;
    }
    if (style.fontSize) font.size = *style.fontSize;
    constexpr int16_t bold = 700, regular = 400;
    if (style.bold) font.weight = *style.bold ? bold : regular;
    if (style.italic) font.italic = *style.italic;
    if (style.underline) font.underline = *style.underline;
    if (style.strikeThrough) font.strikethrough = *style.strikeThrough;
    return font;
}

GridPainter::GridPainter(Canvas& canvas, PixelPoint origin, const GridView& view, const GridLook& look,
                         const GridMarks& marks)
    : canvas_(canvas),
      origin_(origin),
      view_(view),
      look_(look),
      marks_(marks),
      clip_(canvas.clipBounds().moved(-origin.x, -origin.y)),
      line_(canvas.dpi().scaled(1)) {}

void GridPainter::paint() {
    const PixelRect area{0, 0, view_.size().width, view_.size().height};
    const CellRange visible = view_.visible();
    const PixelRect cells = view_.rect(visible).intersected(area);
    const PixelRect right{std::max(cells.right, 0), 0, area.right, area.bottom};
    const PixelRect below{0, std::max(cells.bottom, 0), right.left, area.bottom};
    for (const PixelRect& rest : {right, below}) {
        if (!rest.intersected(clip_).empty())
            canvas_.fillRect(rest.moved(origin_.x, origin_.y), look_.ground);
    }
    if (visible.empty()) return;
    const CanvasClip clip(canvas_, area.moved(origin_.x, origin_.y));
    view_.eachVisibleRow([this](int32_t row, int32_t top, int32_t bottom) {
        if (bottom > clip_.top && top < clip_.bottom) paintRow(row, top, bottom);
    });
    paintLines(cells);
    paintFrame();
}

void GridPainter::paintRow(int32_t row, int32_t top, int32_t bottom) {
    const GridModel& grid = view_.grid();
    // Neighbours of one colour are filled at once.
    PixelRect span{0, top, 0, bottom};
    std::optional<Rgb> colour;
    const auto fill = [&] {
        if (colour) canvas_.fillRect(span.moved(origin_.x, origin_.y), *colour);
    };
    view_.eachVisibleCol([&](int32_t col, int32_t left, int32_t right) {
        const CellAddress cell{row, col};
        const Rgb own = backColour(cell, *grid.style(cell));
        if (colour != own) {
            fill();
            colour = own;
            span.left = left;
        }
        span.right = right;
    });
    fill();
    view_.eachVisibleCol([&](int32_t col, int32_t left, int32_t right) {
        if (right > clip_.left && left < clip_.right) paintCell({row, col}, {left, top, right, bottom});
    });
}

Rgb GridPainter::backColour(CellAddress cell, const CellStyle& style) const {
    if (marked(cell)) return look_.selectionBack;
    return look_.ownColours && style.backColour ? look_.rgb(*style.backColour) : look_.back;
}

const TextStyle& GridPainter::textStyle(const CellStyle& style) {
    if (styleOfText_ == &style) return text_;
    styleOfText_ = &style;
    text_.font = cellFont(look_.font, style);
    return text_;
}

void GridPainter::paintCell(CellAddress cell, const PixelRect& rect) {
    const GridModel& grid = view_.grid();
    const StyleRef style = grid.style(cell);
    const TextView text = grid.text(cell);
    if (text.empty() && !style->picture) return;
    const int32_t margin = cellMargin(canvas_.dpi());
    PixelRect content{rect.left, rect.top, rect.right - line_, rect.bottom - line_};
    content = content.moved(origin_.x, origin_.y);
    if (style->picture) {
        const auto [picture, shown] = onScreen(*style->picture, canvas_.dpi());
        const Placement at = placementOf(style->pictureAlignment.value_or(CellAlignment::leftCentre));
        const CanvasClip clip(canvas_, content);
        canvas_.drawPicture(picture, placed(shown, content, at));
        // The text stands beside it.
        if (at.horizontal == HorizontalAlignment::left)
            content.left = std::min(content.right, content.left + shown.width);
        else if (at.horizontal == HorizontalAlignment::right)
            content.right = std::max(content.left, content.right - shown.width);
    }
    content.left += margin;
    content.right -= std::max(margin - line_, 0);
    if (text.empty() || content.empty()) return;
    const Placement at = placementOf(grid.alignment(cell));
    const Rgb colour = marked(cell)                            ? look_.selectionFore
                       : look_.ownColours && style->foreColour ? look_.rgb(*style->foreColour)
                                                               : look_.fore;
    // In a column of check marks they stand where its editor has its box.
    const bool inCheckColumn = look_.checkColumns && look_.checkColumns(cell.col);
    if (trimmed(text) == u"a" && (inCheckColumn || isCheckFont(*style))) {
        const double size = isCheckFont(*style) ? textStyle(*style).font.size : checkFontSize;
        drawCheckMark(canvas_, checkMarkPlace(canvas_, content, size, inCheckColumn ? centred : at), colour);
        return;
    }
    textStyle(*style);
    text_.colour = colour;
    text_.horizontal = at.horizontal;
    text_.vertical = at.vertical;
    canvas_.drawText(text, content, text_);
}

void GridPainter::paintLines(const PixelRect& cells) {
    const auto draw = [this](const PixelRect& line) {
        canvas_.fillRect(line.moved(origin_.x, origin_.y), look_.lines);
    };
    view_.eachVisibleRow([&](int32_t, int32_t, int32_t bottom) {
        if (bottom > clip_.top && bottom - line_ < clip_.bottom)
            draw({cells.left, bottom - line_, cells.right, bottom});
    });
    view_.eachVisibleCol([&](int32_t, int32_t, int32_t right) {
        if (right > clip_.left && right - line_ < clip_.right)
            draw({right - line_, cells.top, right, cells.bottom});
    });
}

void GridPainter::paintFrame() {
    if (!view_.grid().contains(marks_.current)) return;
    PixelRect rect = view_.rect(marks_.current);
    if (rect.empty()) return;
    // On the lines and, with the focus, on what a row has above and below its text.
    rect.left -= frameReach(canvas_.dpi());
    rect.top -= frameReach(canvas_.dpi());
    if (rect.intersected(clip_).empty()) return;
    rect = rect.moved(origin_.x, origin_.y);
    canvas_.frameRect(rect, line_, marks_.focused ? look_.focus : look_.selectionBack);
    if (!marks_.focused) return;
    // Two colours on a cell of a colour of its own, so that it is seen on every one.
    const bool usual = backColour(marks_.current, *view_.grid().style(marks_.current)) == look_.back;
    canvas_.frameRect(rect.inset(line_), line_, usual ? look_.focus : look_.window);
}

}  // namespace obk
