#include "forms/main_form.h"

namespace tos {

namespace {
constexpr const char* kNumbersOnly = "Enter numbers ONLY!!";

void Grey(TextBox& box)
{
    box.SetLocked(true);
    box.SetBack(BackColor::ButtonFace);
}
} // namespace

MainForm::MainForm()
    : frameSourceTolvarineProject("frameSourceTolvarineProject", "Source Tolvarine Project"),
      btnBrowseProjectFile("btnBrowseProjectFile", "&Browse"),
      txtProjectFilePath("txtProjectFilePath"),
      chkMainTile("chkMainTile", "Main Tile (re-load required)", 1),
      chkPerimeterTile("chkPerimeterTile", "Perimeter Tiles (re-load required)", 0),
      lblNumberOfTiles("lblNumberOfTiles", "Number Of Tiles: (Per Side)"),
      txtNumberOfTiles("txtNumberOfTiles", "5"), lblGridRes("lblGridRes", "Grid Res:"),
      txtGridRes("txtGridRes", "3.0"), lblNumOfSLTFiles("lblNumOfSLTFiles", "Number of SLT files:"),
      lblSLTcount("lblSLTcount", ""), lblSelectObject("lblSelectObject", "Select Object:"),
      comboSelectObject("comboSelectObject"),
      lblVerticalScale("lblVerticalScale", "Vertical Scale Adjust:"),
      txtVerticalScale("txtVerticalScale", "1.0"),
      lblVerticalOffest("lblVerticalOffest", "Vertical Offset Adjust (Y):"),
      txtVerticalOffset("txtVerticalOffset", "0.0"),
      Frame2("Frame2", "Source MAX File and Object Name"),
      btnBrowseMaxFile("btnBrowseMaxFile", "Browse"), txtMaxFile("txtMaxFile"),
      lblMaxObjectName("lblMaxObjectName", "Object Name:"), txtMaxObjectName("txtMaxObjectName"),
      chkUseTolvarineName("chkUseTolvarineName", "Use Tolvarine name", 0),
      chkUseMaxName("chkUseMaxName", "Use abbr. Max file name", 0),
      btnProcess("btnProcess", "&Process"), chkSave("chkSave", "Save To File", 0),
      btnProcessAll("btnProcessAll", "Process &All..."),
      btnRunScriptCompiler("btnRunScriptCompiler", "Combine Scripts..."),
      btnSceneMap("btnSceneMap", "Scene &Map..."), btnViewHelp("btnViewHelp", "View &Help"),
      btnExit("btnExit", "E&xit"),
      chkUseObjectScale("chkUseObjectScale", "Use Object Scale (%)", 1),
      txtObjectScale("txtObjectScale", "100.000000"),
      lblCalcGridSize("lblCalcGridSize", "3dsMax Grid Size:"), txtGridSize("txtGridSize", "768"),
      chkMax2008("chkMax2008", "For 3ds Max 2008 and later", 0),
      chkInstances("chkInstances", "Instances instead of copies", 0),
      frameMaxScriptOutput("frameMaxScriptOutput", "MAX Script Output"),
      List2("List2", false, RowLimit::None), lblScriptCheck("lblScriptCheck", ""),
      Frame1("Frame1", ""), lblVersion("lblVersion", ""),
      lblCredits("lblCredits",
                 "Tolvarine Object Scripter\nScene objects to MAXScript, copy by copy"),
      lstSCNdata1("lstSCNdata1", true), lstSCNdata2("lstSCNdata2", true),
      lstSCNdata3("lstSCNdata3", true), lstBillboards("lstBillboards", true),
      lstBales("lstBales", true), lstTripleBales("lstTripleBales", true),
      lst55GalDrums_TrashCans("lst55GalDrums_TrashCans", true)
{
    btnBrowseProjectFile.SetToolTip("Browse for your Tolvarine PRJ file");
    txtProjectFilePath.SetToolTip("Path and File Name of your Tolvarine Project");
    txtProjectFilePath.SetLocked(true);
    txtProjectFilePath.SetEnabled(false);
    for (TextBox* box : {&txtNumberOfTiles, &txtGridRes}) {
        box->SetToolTip(kNumbersOnly);
        Grey(*box);
    }
    txtVerticalScale.SetToolTip(kNumbersOnly);
    txtVerticalOffset.SetToolTip(kNumbersOnly);
    btnBrowseMaxFile.SetToolTip("Browse for your 3dsMax file");
    btnProcess.SetEnabled(false);
    btnSceneMap.SetToolTip("Where the copies of the selected row will stand");
    Grey(txtGridSize);
    chkMax2008.SetToolTip("Scripts that today's 3ds Max runs whatever the names and paths");
    chkInstances.SetToolTip("Every copy shares the first object's mesh");
    chkInstances.SetEnabled(false);

    List2.SetBack(BackColor::ButtonFace);
    List2.SetFont({"Courier New", 9});
    lblCredits.SetFont({"Arial", 9});
    comboSelectObject.SetFont({"Arial", 9});

    for (ListBox* list : {&lstSCNdata1, &lstSCNdata2, &lstSCNdata3, &lstBillboards, &lstBales,
                          &lstTripleBales, &lst55GalDrums_TrashCans})
        list->SetVisible(false);
}

} // namespace tos
