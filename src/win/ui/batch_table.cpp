#include "win/ui/batch_table.h"

#include "batch/batch_form.h"
#include "win/ui/control_mirrors.h"
#include "win/ui/text_mirrors.h"

namespace tos::win::ui {

namespace {

constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS;
constexpr int kLine = 28;
constexpr int kBox = 22;

int LinesHeight(const BatchForm& form)
{
    return static_cast<int>(form.rows.size()) * kLine + 4;
}

// Laid out on a grid of 15 twips, one pixel at 96 DPI.
TwipRect At(int left, int top, int width, int height)
{
    return {15 * left, 15 * top, 15 * width, 15 * height};
}

} // namespace

BatchTable::BatchTable(BatchForm& form, HWND parent)
    : FormWindow("", kStyle, WS_EX_CONTROLPARENT, parent, 15 * BatchColumns::kWidth,
                 15 * LinesHeight(form)),
      form_(form)
{
    using C = BatchColumns;
    int y = 3;
    // Creation order is the tab order: each line from left to right.
    for (const auto& row : form.rows) {
        Add<CheckBoxMirror>(row->chkProcess,
                            At(C::kProcess, y, C::kMaxFile - C::kProcess - 4, kBox), kFixed);
        Add<TextBoxMirror>(row->txtMaxFile, At(C::kMaxFile, y, C::kBrowse - C::kMaxFile - 4, kBox),
                           kGrowRight);
        Add<ButtonMirror>(row->btnBrowseMaxFile,
                          At(C::kBrowse, y - 1, C::kObjectName - C::kBrowse - 6, kBox + 2),
                          kMoveRight);
        Add<TextBoxMirror>(row->txtObjectName,
                           At(C::kObjectName, y, C::kNameFrom - C::kObjectName - 6, kBox),
                           kMoveRight);
        Add<CheckBoxMirror>(row->chkUseTolvarineName,
                            At(C::kNameFrom, y, C::kUseMax - C::kNameFrom - 2, kBox), kMoveRight);
        Add<CheckBoxMirror>(row->chkUseMaxName, At(C::kUseMax, y, C::kScale - C::kUseMax - 4, kBox),
                            kMoveRight);
        Add<TextBoxMirror>(row->txtVerticalScale,
                           At(C::kScale, y, C::kOffset - C::kScale - 4, kBox), kMoveRight);
        Add<TextBoxMirror>(row->txtVerticalOffset,
                           At(C::kOffset, y, C::kWidth - C::kOffset - 4, kBox), kMoveRight);
        y += kLine;
    }
    FinishLayout();
}

int BatchTable::HeightPixels() const
{
    return Dpi().Pixels(15 * LinesHeight(form_));
}

int BatchTable::Pointer() const
{
    return form_.mousePointer;
}

} // namespace tos::win::ui
