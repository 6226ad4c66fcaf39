// SPDX-License-Identifier: MIT
// Texts: what the form program says, in English or in Simplified Chinese.
#include "host/form/parts/Texts.h"

#include <windows.h>

#include <array>

namespace Quorvane::Host {

namespace {

struct Bilingual {
    const wchar_t* English;
    const wchar_t* Chinese;
};

/// In the order of the ids.
constexpr std::array<Bilingual, 41> Table = {{
    {L"Quorvane Form", L"Quorvane 窗体"},
    {L"(new form)", L"(新窗体)"},
    {L"[Run]", L"[运行]"},
    {L"[Design]", L"[设计]"},
    {L"&File", L"文件(&F)"},
    {L"&New\tCtrl+N", L"新建(&N)\tCtrl+N"},
    {L"&Open...\tCtrl+O", L"打开(&O)...\tCtrl+O"},
    {L"&Save\tCtrl+S", L"保存(&S)\tCtrl+S"},
    {L"Save &As...", L"另存为(&A)..."},
    {L"E&xit\tAlt+F4", L"退出(&X)\tAlt+F4"},
    {L"F&orm", L"窗体(&O)"},
    {L"&Design Mode\tShift+F5", L"设计模式(&D)\tShift+F5"},
    {L"&Run Mode\tF5", L"运行模式(&R)\tF5"},
    {L"&Add Control\tIns", L"添加控件(&A)\tIns"},
    {L"Re&move Control\tDel", L"删除控件(&M)\tDel"},
    {L"&Properties...\tF4", L"属性(&P)...\tF4"},
    {L"&Help", L"帮助(&H)"},
    {L"&About the Control...", L"关于控件(&A)..."},
    {L"Forms (*.form)", L"窗体 (*.form)"},
    {L"All files", L"所有文件"},
    {L"Save the changes to this form?", L"是否保存对此窗体的更改？"},
    {L"? Properties", L"? 属性"},
    {L"This control has no property pages.", L"此控件没有属性页。"},
    {L"OK", L"确定"},
    {L"Cancel", L"取消"},
    {L"&Apply", L"应用(&A)"},
    {L"Help", L"帮助"},
    {L"Property", L"属性"},
    {L"Value", L"值"},
    {L"Output", L"输出"},
    {L"Event", L"事件"},
    {L"Count", L"次数"},
    {L"F&ire", L"推理(&I)"},
    {L"Auto fi&re", L"自动推理(&R)"},
    {L"&Data show", L"显示数据(&D)"},
    {L"Di&visions:", L"等分数(&V):"},
    {L"&Batch...", L"批处理(&B)..."},
    {L"Folder for InData.txt and OutData.txt", L"存放 InData.txt 和 OutData.txt 的文件夹"},
    {L"Run a batch to see the response.", L"运行批处理后在此显示响应。"},
    {L"A picture needs a system of one or two inputs.", L"只有一个或两个输入的系统才有图形。"},
    {L"The batch is not complete.", L"批处理不完整。"},
}};

} // namespace

const wchar_t* GetText(TextId id) {
    static const bool isChinese =
        GetUserDefaultLangID() == MAKELANGID(LANG_CHINESE, SUBLANG_CHINESE_SIMPLIFIED);
    const Bilingual& text = Table[static_cast<std::size_t>(id)];
    return isChinese ? text.Chinese : text.English;
}

std::wstring GetText(TextId id, const std::wstring& name) {
    std::wstring text = GetText(id);
    const auto mark = text.find(L'?');
    return mark == std::wstring::npos ? text : text.replace(mark, 1, name);
}

} // namespace Quorvane::Host
