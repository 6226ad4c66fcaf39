// SPDX-License-Identifier: MIT
// Texts: what the form program says, in English or in Simplified Chinese.
#include "host/form/parts/Texts.h"

#include <windows.h>

#include <array>

namespace Quorvane::Host {
namespace {

struct Bilingual {
    const char16_t* English;
    const char16_t* Chinese;
};

/// In the order of the ids.
constexpr std::array<Bilingual, 41> Table = {{
    {u"Quorvane Form", u"Quorvane 窗体"},
    {u"(new form)", u"(新窗体)"},
    {u"[Run]", u"[运行]"},
    {u"[Design]", u"[设计]"},
    {u"&File", u"文件(&F)"},
    {u"&New\tCtrl+N", u"新建(&N)\tCtrl+N"},
    {u"&Open...\tCtrl+O", u"打开(&O)...\tCtrl+O"},
    {u"&Save\tCtrl+S", u"保存(&S)\tCtrl+S"},
    {u"Save &As...", u"另存为(&A)..."},
    {u"E&xit\tAlt+F4", u"退出(&X)\tAlt+F4"},
    {u"F&orm", u"窗体(&O)"},
    {u"&Design Mode\tShift+F5", u"设计模式(&D)\tShift+F5"},
    {u"&Run Mode\tF5", u"运行模式(&R)\tF5"},
    {u"&Add Control\tIns", u"添加控件(&A)\tIns"},
    {u"Re&move Control\tDel", u"删除控件(&M)\tDel"},
    {u"&Properties...\tF4", u"属性(&P)...\tF4"},
    {u"&Help", u"帮助(&H)"},
    {u"&About the Control...", u"关于控件(&A)..."},
    {u"Forms (*.form)", u"窗体 (*.form)"},
    {u"All files", u"所有文件"},
    {u"Save the changes to this form?", u"是否保存对此窗体的更改？"},
    {u"? Properties", u"? 属性"},
    {u"This control has no property pages.", u"此控件没有属性页。"},
    {u"OK", u"确定"},
    {u"Cancel", u"取消"},
    {u"&Apply", u"应用(&A)"},
    {u"Help", u"帮助"},
    {u"Property", u"属性"},
    {u"Value", u"值"},
    {u"Output", u"输出"},
    {u"Event", u"事件"},
    {u"Count", u"次数"},
    {u"F&ire", u"推理(&I)"},
    {u"Auto fi&re", u"自动推理(&R)"},
    {u"&Data show", u"显示数据(&D)"},
    {u"Di&visions:", u"等分数(&V):"},
    {u"&Batch...", u"批处理(&B)..."},
    {u"Folder for InData.txt and OutData.txt", u"存放 InData.txt 和 OutData.txt 的文件夹"},
    {u"Run a batch to see the response.", u"运行批处理后在此显示响应。"},
    {u"A picture needs a system of one or two inputs.", u"只有一个或两个输入的系统才有图形。"},
    {u"The batch is not complete.", u"批处理不完整。"},
}};

} // namespace

Text GetText(TextId id) {
    static const bool isChinese =
        ::GetUserDefaultLangID() == MAKELANGID(LANG_CHINESE, SUBLANG_CHINESE_SIMPLIFIED);
    const Bilingual& text = Table[static_cast<std::size_t>(id)];
    return isChinese ? text.Chinese : text.English;
}

Text GetText(TextId id, const Text& name) {
    Text text = GetText(id);
    const auto mark = text.find(u'?');
    return mark == Text::npos ? text : text.replace(mark, 1, name);
}

} // namespace Quorvane::Host
