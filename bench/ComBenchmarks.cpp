// SPDX-License-Identifier: MIT
// Times the calls of a host: values in, a cycle, values out, early and late bound.
#include <benchmark/benchmark.h>

#include <cstdio>

#include "bench/Benchmarks.h"
#include "bench/ControlHost.h"
#include "bench/EmptyObject.h"
#include "bench/Rig.h"
#include "com/Scoped.h"

namespace Quorvane::Bench {
namespace {

const Workload& System() {
    return Workloads().front();
}

std::vector<Com::Variant> Keys(std::initializer_list<TextView> names) {
    return {names.begin(), names.end()};
}

/// The items that a host of the system works with, in dictionaries that it holds.
class HostItems {
  public:
    HostItems(Com::ComPtr<IDictionary> inputs, Com::ComPtr<IDictionary> outputs)
        : inputs_(std::move(inputs)), outputs_(std::move(outputs)) {
        Rig::Of(System());
        stream_ = MakeStream(Change::All);
        Com::Variant none(0.0);
        Com::Check(outputs_->put_Item(&outputKey_.Get(), &none.Get()));
    }

    /// The next values of the stream.
    void PutInputs() {
        for (Com::Variant& key : inputKeys_) {
            value_.dblVal = stream_.Values[next_++];
            Com::Check(inputs_->put_Item(&key.Get(), &value_));
        }
        next_ %= stream_.Values.size();
    }

    void GetOutput() {
        VARIANT item;
        Com::Check(outputs_->get_Item(&outputKey_.Get(), &item));
        benchmark::DoNotOptimize(item.dblVal);
    }

    /// Dictionaries of which a host asks for anew.
    void Replace(Com::ComPtr<IDictionary> inputs, Com::ComPtr<IDictionary> outputs) {
        inputs_ = std::move(inputs);
        outputs_ = std::move(outputs);
    }

  private:
    Com::ComPtr<IDictionary> inputs_;
    Com::ComPtr<IDictionary> outputs_;
    std::vector<Com::Variant> inputKeys_ = Keys({u"In1", u"In2"});
    Com::Variant outputKey_{TextView(u"Out1")};
    VARIANT value_ = Com::Variant(0.0).Get();
    Stream stream_{};
    std::size_t next_ = 0;
};

void RunRounds(benchmark::State& run, HostItems items, const Com::ComPtr<_FISControl>& control) {
    for (auto _ : run) {
        items.PutInputs();
        Com::Check(control->Fire());
        items.GetOutput();
    }
}

void OwnRound(benchmark::State& run) {
    const ControlHost& host = ControlHost::Of(System());
    RunRounds(run, {host.InVals(), host.OutVals()}, host.Control());
}

void SinkRound(benchmark::State& run) {
    const ControlHost& host = ControlHost::Of(System());
    const ConnectedSink sink(host.Control());
    RunRounds(run, {host.InVals(), host.OutVals()}, host.Control());
}

void ForeignRound(benchmark::State& run) {
    const ControlHost& host = ControlHost::Of(System());
    const auto own = host.InVals();
    const auto foreign = NewPlatformDictionary();
    Com::Check(host.Control()->putref_InVals(foreign.Get()));
    RunRounds(run, {foreign, host.OutVals()}, host.Control());
    Com::Check(host.Control()->putref_InVals(own.Get()));
}

void PropertyRound(benchmark::State& run) {
    const ControlHost& host = ControlHost::Of(System());
    HostItems items(host.InVals(), host.OutVals());
    for (auto _ : run) {
        items.Replace(host.InVals(), {});
        items.PutInputs();
        Com::Check(host.Control()->Fire());
        items.Replace({}, host.OutVals());
        items.GetOutput();
    }
}

void RunItems(benchmark::State& run, HostItems items) {
    for (auto _ : run) {
        items.PutInputs();
        items.GetOutput();
    }
}

void OwnItems(benchmark::State& run) {
    const ControlHost& host = ControlHost::Of(System());
    RunItems(run, {host.InVals(), host.OutVals()});
}

void PlatformItems(benchmark::State& run) {
    ControlHost::Of(System());
    RunItems(run, {NewPlatformDictionary(), NewPlatformDictionary()});
}

/// A method without arguments, called by name as a script does.
class LateMethod {
  public:
    LateMethod(Com::ComPtr<IDispatch> object, DISPID method)
        : object_(std::move(object)), method_(method) {}

    void Call() {
        DISPPARAMS none{};
        EXCEPINFO exception{};
        UINT badArgument = 0;
        Com::Check(object_->Invoke(method_, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none,
                                   nullptr, &exception, &badArgument));
    }

  private:
    Com::ComPtr<IDispatch> object_;
    DISPID method_;
};

LateMethod FireMethod(const ControlHost& host) {
    wchar_t name[] = L"Fire";
    LPOLESTR names = name;
    DISPID id = 0;
    Com::Check(host.Control()->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id));
    return {host.Control(), id};
}

void LateFire(benchmark::State& run) {
    LateMethod fire = FireMethod(ControlHost::Of(System()));
    for (auto _ : run) {
        fire.Call();
    }
}

void LateRound(benchmark::State& run) {
    const ControlHost& host = ControlHost::Of(System());
    HostItems items(host.InVals(), host.OutVals());
    LateMethod fire = FireMethod(host);
    for (auto _ : run) {
        items.PutInputs();
        fire.Call();
        items.GetOutput();
    }
}

void LateEmpty(benchmark::State& run) {
    ControlHost::Of(System());
    LateMethod empty(NewEmptyObject(), 1);
    for (auto _ : run) {
        empty.Call();
    }
}

} // namespace

void RegisterComBenchmarks() {
    benchmark::RegisterBenchmark("com/platform/items", PlatformItems);
    benchmark::RegisterBenchmark("com/own/items", OwnItems);
    benchmark::RegisterBenchmark("com/own/round", OwnRound);
    benchmark::RegisterBenchmark("com/own/round with sink", SinkRound);
    benchmark::RegisterBenchmark("com/own/round with properties", PropertyRound);
    benchmark::RegisterBenchmark("com/foreign/round", ForeignRound);
    benchmark::RegisterBenchmark("com/late/round", LateRound);
    benchmark::RegisterBenchmark("com/late/empty", LateEmpty);
    benchmark::RegisterBenchmark("com/late/fire", LateFire);
}

void PrintComTable(const Medians& medians) {
    const auto time = [&](const char* name) {
        const auto found = medians.find(std::string("com/") + name);
        return found == medians.end() ? 0 : found->second;
    };
    const double platform = time("platform/items");
    std::printf("Calls of a host on W1, two items put and one got; limits in brackets\n");
    std::printf("the calls alone on the platform's dictionary %.0f ns, on the control's %.0f ns\n",
                platform, time("own/items"));
    const auto print = [&](const char* name, const char* limit) {
        std::printf("%s %.0f ns: %.2f of the former%s\n", name, time(name), time(name) / platform,
                    limit);
    };
    print("own/round", " (at most 1)");
    print("own/round with sink", "");
    print("own/round with properties", "");
    print("foreign/round", "");
    const double empty = time("late/empty");
    const double changed = time("late/round") - time("own/items");
    std::printf("late bound: an empty method %.0f ns  Fire %.0f ns: %.2fx (at most 3x)  with "
                "changed inputs %.0f ns: %.2fx\n",
                empty, time("late/fire"), time("late/fire") / empty, changed, changed / empty);
}

} // namespace Quorvane::Bench
