#pragma once

#include <string>
#include <vector>

#include "forms/controls.h"
#include "forms/script_findings.h"

namespace tos {

// The main window as a model: its controls hold the settings and, in seven
// hidden sorted lists, the records of the loaded scene. Built in its first state.
struct MainForm {
    MainForm();
    MainForm(const MainForm&) = delete;
    MainForm& operator=(const MainForm&) = delete;

    std::string caption = "Tolvarine Object Scripter";
    // Inner area in twips; the window has no maximise button. The two style boxes
    // and the check's line took 38 pixels above and below the script list, so the
    // form is that much taller than the first design and the list keeps its four rows.
    static constexpr int kWidthTwips = 8895;
    static constexpr int kHeightTwips = 6480 + 38 * 15;
    // Position in twips, set by the centring routines.
    int left = 0;
    int top = 0;
    bool loaded = false;
    bool visible = false;
    int mousePointer = 0;
    ViewNotifier formView; // position, visibility, pointer

    Frame frameSourceTolvarineProject;
    Button btnBrowseProjectFile;
    TextBox txtProjectFilePath;
    CheckBox chkMainTile;
    CheckBox chkPerimeterTile;
    Label lblNumberOfTiles;
    TextBox txtNumberOfTiles;
    Label lblGridRes;
    TextBox txtGridRes;
    Label lblNumOfSLTFiles;
    Label lblSLTcount;
    Label lblSelectObject;
    ComboBox comboSelectObject;
    Label lblVerticalScale;
    TextBox txtVerticalScale;
    Label lblVerticalOffest;
    TextBox txtVerticalOffset;

    Frame Frame2;
    Button btnBrowseMaxFile;
    TextBox txtMaxFile;
    Label lblMaxObjectName;
    TextBox txtMaxObjectName;
    CheckBox chkUseTolvarineName;
    CheckBox chkUseMaxName;

    Button btnProcess;
    CheckBox chkSave;
    Button btnProcessAll; // opens the batch window
    Button btnRunScriptCompiler;
    Button btnSceneMap; // opens the scene map, which only looks
    Button btnViewHelp;
    Button btnExit;
    CheckBox chkUseObjectScale;
    TextBox txtObjectScale;
    Label lblCalcGridSize;
    TextBox txtGridSize;

    // The script style: classic (for 3ds Max 3.1) unless this is checked.
    CheckBox chkMax2008;
    // Enabled only with chkMax2008: copies share the first object's mesh.
    CheckBox chkInstances;

    Frame frameMaxScriptOutput;
    ListBox List2; // the script buffer, unsorted, without a row limit
    // One line under the script list: what the check found in the last script.
    Label lblScriptCheck;
    std::vector<ScriptFinding> scriptFindings;

    Frame Frame1;
    Label lblVersion;
    Label lblCredits;

    // The tile choice (chkMainTile's value) the record lists were filled under at the
    // last load; -1 before any. A later click asks for a new load.
    int listsMainTile = -1;

    // Hidden record lists, each sorted.
    ListBox lstSCNdata1;
    ListBox lstSCNdata2;
    ListBox lstSCNdata3;
    ListBox lstBillboards;
    ListBox lstBales;
    ListBox lstTripleBales;
    ListBox lst55GalDrums_TrashCans;
};

} // namespace tos
