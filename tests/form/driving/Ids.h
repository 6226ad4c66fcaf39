// SPDX-License-Identifier: MIT
// The window classes and ids by which the windows of the form program and of the control are known.
#pragma once

namespace Quorvane::Driving {

namespace WindowClass {
inline constexpr const wchar_t* Form = L"QuorvaneFormWindow";
inline constexpr const wchar_t* Surface = L"QuorvaneFormSurface";
inline constexpr const wchar_t* RunPanel = L"QuorvaneRunPanel";
inline constexpr const wchar_t* InputRows = L"QuorvaneInputRows";
inline constexpr const wchar_t* PropertyGrid = L"QuorvanePropertyGrid";
inline constexpr const wchar_t* PropertyFrame = L"QuorvanePropertyFrame";
inline constexpr const wchar_t* Picture = L"QuorvaneSurfacePicture";
inline constexpr const wchar_t* Page = L"QuorvaneFisIO";
inline constexpr const wchar_t* RuleEditor = L"QuorvaneRuleEditor";
inline constexpr const wchar_t* Dialog = L"#32770";
} // namespace WindowClass

namespace Id {
// The form.
inline constexpr int SaveAs = 40004;
inline constexpr int RemoveControl = 40009;
inline constexpr int About = 40011;
// The property grid.
inline constexpr int GridList = 100;
inline constexpr int GridField = 101;
inline constexpr int GridTitle = 102;
// The run panel.
inline constexpr int ControlChoice = 100;
inline constexpr int Fire = 101;
inline constexpr int AutoFire = 102;
inline constexpr int DataShow = 103;
inline constexpr int OutputList = 104;
inline constexpr int EventLog = 105;
inline constexpr int Divisions = 106;
inline constexpr int Batch = 107;
inline constexpr int OutputChoice = 108;
inline constexpr int Progress = 109;
inline constexpr int FirstField = 1000;
// The property frame.
inline constexpr int Ok = 1;
inline constexpr int Cancel = 2;
inline constexpr int Apply = 100;
inline constexpr int Help = 101;
// The property page.
inline constexpr int TreInput = 100;
inline constexpr int TreOutput = 101;
inline constexpr int CmdAdd = 102;
inline constexpr int CmdModify = 103;
inline constexpr int CmdDelete = 104;
inline constexpr int CmdRule = 105;
inline constexpr int PicMF = 106;
// The rule editor.
inline constexpr int PicInput = 100;
inline constexpr int PicOutput = 101;
inline constexpr int LvwRule = 102;
inline constexpr int TxtWeight = 103;
inline constexpr int CmdAddRule = 104;
inline constexpr int CmdDeleteRule = 105;
inline constexpr int FirstTermList = 100;
} // namespace Id

} // namespace Quorvane::Driving
