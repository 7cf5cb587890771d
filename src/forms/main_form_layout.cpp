#include "forms/main_form_layout.h"

#include <utility>

namespace tos {

namespace {

// Heights of a box and of a label's text line; a label sits 3 below its box's top.
constexpr int kBox = 22;
constexpr int kLine = 16;
// The two frames on the left, the column on the right and the full width.
constexpr int kLeft = 8;
constexpr int kLeftWidth = 404;
constexpr int kProjectTop = 4;
constexpr int kMaxTop = 194;
constexpr int kRight = 420;
constexpr int kRightWidth = 165;
constexpr int kFullWidth = 577;

DesignedPlace InProject(int x, int y, int width, int height)
{
    return {kLeft + x, kProjectTop + y, width, height};
}

DesignedPlace InMax(int x, int y, int width, int height)
{
    return {kLeft + x, kMaxTop + y, width, height};
}

} // namespace

DesignedPlace DesignedPlaceOf(const MainForm& f, const Control& control)
{
    // The right column stacks its controls from the top, each with its gap below.
    auto right = [](int top, int height) {
        return DesignedPlace{kRight, top, kRightWidth, height};
    };
    const std::pair<const Control*, DesignedPlace> places[] = {
        {&f.frameSourceTolvarineProject, InProject(0, 0, kLeftWidth, 186)},
        {&f.btnBrowseProjectFile, InProject(10, 18, 66, 24)},
        {&f.txtProjectFilePath, InProject(82, 19, 312, kBox)},
        {&f.chkMainTile, InProject(10, 46, 180, kBox)},
        {&f.chkPerimeterTile, InProject(192, 46, 206, kBox)},
        {&f.lblNumberOfTiles, InProject(10, 71, 160, kLine)},
        {&f.txtNumberOfTiles, InProject(172, 68, 44, kBox)},
        {&f.lblGridRes, InProject(232, 71, 64, kLine)},
        {&f.txtGridRes, InProject(296, 68, 54, kBox)},
        {&f.lblNumOfSLTFiles, InProject(10, 93, 160, kLine)},
        {&f.lblSLTcount, InProject(172, 93, 80, kLine)},
        {&f.lblSelectObject, InProject(10, 116, 100, kLine)},
        {&f.comboSelectObject, InProject(110, 112, 284, 24)},
        {&f.lblVerticalScale, InProject(10, 142, 160, kLine)},
        {&f.txtVerticalScale, InProject(172, 139, 64, kBox)},
        {&f.btnSceneMap, InProject(248, 139, 146, 24)},
        {&f.lblVerticalOffest, InProject(10, 165, 160, kLine)},
        {&f.txtVerticalOffset, InProject(172, 162, 64, kBox)},

        {&f.Frame2, InMax(0, 0, kLeftWidth, 96)},
        {&f.btnBrowseMaxFile, InMax(10, 18, 66, 24)},
        {&f.txtMaxFile, InMax(82, 19, 312, kBox)},
        {&f.lblMaxObjectName, InMax(10, 47, 90, kLine)},
        {&f.txtMaxObjectName, InMax(100, 44, 294, kBox)},
        {&f.chkUseTolvarineName, InMax(10, 68, 170, kBox)},
        {&f.chkUseMaxName, InMax(190, 68, 200, kBox)},

        {&f.btnProcess, right(10, 30)},
        {&f.chkSave, right(44, kBox)},
        {&f.btnProcessAll, right(70, 24)},
        {&f.btnRunScriptCompiler, right(98, 24)},
        {&f.btnViewHelp, right(126, 24)},
        {&f.btnExit, right(154, 24)},
        {&f.chkUseObjectScale, right(188, kBox)},
        {&f.txtObjectScale, right(212, kBox)},
        {&f.lblCalcGridSize, right(244, kLine)},
        {&f.txtGridSize, right(266, kBox)},

        // The script list takes the room a larger window gives; the credits stay
        // at the foot.
        {&f.frameMaxScriptOutput, {kLeft, 292, kFullWidth, 134}},
        {&f.chkMax2008, {16, 308, 200, 20}},
        {&f.chkInstances, {220, 308, 200, 20}},
        {&f.List2, {16, 330, kFullWidth - 16, 76}},
        {&f.lblScriptCheck, {16, 408, kFullWidth - 16, kLine}},
        {&f.Frame1, {kLeft, 427, kFullWidth, 39}},
        {&f.lblVersion, {18, 442, 70, kLine}},
        {&f.lblCredits, {98, 434, kFullWidth - 100, 30}},
    };
    for (const auto& [placed, place] : places)
        if (placed == &control)
            return place;
    return {};
}

} // namespace tos
