// SPDX-License-Identifier: MIT
// The platform's run-time errors in words.
#include "text/RuntimeErrorText.h"

#include <string>

#include "shared/Definition.h"
#include "text/GetText.h"

namespace Quorvane::Main {
namespace {

struct RuntimeWords {
    /// The low word of the code; the high one is that of all run-time errors.
    std::uint16_t Number;
    TextView English;
    TextView Chinese;
};

constexpr std::uint32_t RuntimeErrorBase = 0x800A0000;

constexpr RuntimeWords KnownErrors[] = {
    {5, u"Invalid procedure call or argument", u"无效的过程调用或参数"},
    {6, u"Overflow", u"溢出"},
    {9, u"Subscript out of range", u"下标越界"},
    {13, u"Type mismatch", u"类型不匹配"},
    {91, u"Object variable not set", u"对象变量未设置"},
    {382, u"Set not supported at runtime", u"运行时不能设置"},
    {383, u"Set not supported (read-only property)", u"不能设置（只读属性）"},
    {457, u"This key is already associated with an element", u"此键已与一个元素关联"},
    {32811, u"Element not found", u"未找到元素"},
};

bool IsChinese() {
    return Definition::State().LanguageId == SimplifiedChinese;
}

} // namespace

Text RuntimeErrorText(std::uint32_t code) {
    for (const RuntimeWords& known : KnownErrors) {
        if (RuntimeErrorBase + known.Number == code) {
            return Text(IsChinese() ? known.Chinese : known.English) + u" (" +
                   Widen(std::to_string(known.Number)) + u")";
        }
    }
    return {};
}

Text UnknownErrorText(std::int32_t code) {
    return (IsChinese() ? u"错误 " : u"Error ") + Widen(std::to_string(code));
}

} // namespace Quorvane::Main
