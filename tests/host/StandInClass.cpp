// SPDX-License-Identifier: MIT
// StandInClass: makes the stand-in control a class of this process.
#include "tests/host/StandInClass.h"

#include "com/FailedCall.h"

namespace Quorvane::Host {
namespace {

const CLSID FactoryClass{
    0x2c0c6d0e, 0x6f36, 0x49b5, {0x8e, 0x6b, 0x0d, 0x4f, 0x9a, 0x3c, 0x77, 0x10}};

} // namespace

class StandInClass::Factory final : public Com::ComObject<IClassFactory> {
  public:
    explicit Factory(std::vector<std::string>& calls) : calls_(calls) {}

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) noexcept override {
        *object = nullptr;
        if (outer)
            return CLASS_E_NOAGGREGATION;
        return Com::MakeObject<StandInControl>(StandInSettings(), calls_)
            ->QueryInterface(iid, object);
    }
    STDMETHODIMP LockServer(BOOL) noexcept override { return S_OK; }

  private:
    ~Factory() override = default;

    std::vector<std::string>& calls_;
};

StandInClass::StandInClass() {
    Com::Check(::CoRegisterClassObject(FactoryClass, Com::MakeObject<Factory>(calls_).Get(),
                                       CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie_),
               u"register the stand-in class");
}

StandInClass::~StandInClass() {
    ::CoRevokeClassObject(cookie_);
}

Text StandInClass::Name() const {
    return u"{2C0C6D0E-6F36-49B5-8E6B-0D4F9A3C7710}";
}

} // namespace Quorvane::Host
