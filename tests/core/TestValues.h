// SPDX-License-Identifier: MIT
// Values and dictionaries as hosts have them.
#pragma once

#include <functional>
#include <utility>

#include "shared/NumberText.h"
#include "shared/ValueDictionary.h"

namespace Quorvane {

/// A value of a host, whose conversions are what a test says.
class TestHostValue final : public HostValue {
  public:
    using TextSource = std::function<Text()>;
    using NumberSource = std::function<double()>;

    TestHostValue(TextSource text, NumberSource number)
        : text_(std::move(text)), number_(std::move(number)) {}

    Text TextForm(NumberForm) const override { return text_(); }
    double Number() const override { return number_(); }

  private:
    TextSource text_;
    NumberSource number_;
};

inline Value MakeHostValue(TestHostValue::TextSource text, TestHostValue::NumberSource number) {
    return std::make_shared<const TestHostValue>(std::move(text), std::move(number));
}

/// An integer of a host.
class TestInteger final : public HostValue {
  public:
    explicit TestInteger(int number) : number_(number) {}

    Text TextForm(NumberForm) const override { return Widen(std::to_string(number_)); }
    double Number() const override { return number_; }
    std::optional<double> Integer() const override { return number_; }

  private:
    int number_;
};

inline Value IntegerValue(int number) {
    return std::make_shared<const TestInteger>(number);
}

/// A number of a type of the host's own, with decimals.
class TestDecimal final : public HostValue {
  public:
    explicit TestDecimal(double number) : number_(number) {}

    Text TextForm(NumberForm form) const override {
        return form == NumberForm::User ? UserNumberText(number_) : NumberText(number_);
    }
    double Number() const override { return number_; }

  private:
    double number_;
};

inline Value DecimalValue(double number) {
    return std::make_shared<const TestDecimal>(number);
}

inline Value BooleanTrue() {
    return MakeHostValue([] { return Text(u"True"); }, [] { return -1.0; });
}

/// Noon of the first day of 2000.
inline Value DateValue() {
    return MakeHostValue([] { return Text(u"1/1/2000 12:00:00 PM"); }, [] { return 36526.5; });
}

/// A text inside a value of the host, as a by-reference variant can hold it.
inline Value TextValue(TextView text) {
    return MakeHostValue([text] { return Text(text); }, [text] { return ParseUserNumber(text); });
}

/// A value that converts to nothing, as Null or an array.
inline Value NullValue() {
    return MakeHostValue([]() -> Text { throw FisError(RuntimeError::TypeMismatch); },
                         []() -> double { throw FisError(RuntimeError::TypeMismatch); });
}

/// A host's own dictionary, which can run code of the host whenever it is read.
class ForeignDictionary final : public ValueDictionary {
  public:
    using Reader = std::function<void(TextView key)>;

    explicit ForeignDictionary(KeyComparison comparison, Reader onRead = nullptr)
        : values_(comparison), onRead_(std::move(onRead)) {}

    Value Get(TextView key) override {
        if (onRead_) {
            onRead_(key);
        }
        return values_.Get(key);
    }

    void Put(TextView key, Value value) override { values_.Put(key, std::move(value)); }

    std::size_t Count() const { return values_.Items.Count(); }

  private:
    OwnValueDictionary values_;
    Reader onRead_;
};

} // namespace Quorvane
