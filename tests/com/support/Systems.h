// SPDX-License-Identifier: MIT
// Small fuzzy systems whose outputs are easily worked out by hand.
#pragma once

#include <map>

#include "com/Scoped.h"

namespace Quorvane {

/// A fuzzy system as its plain texts.
struct System {
    TextView Inputs;
    TextView Outputs;
    TextView Rules;
};

/// Y = X + 128 for X in -128..128, exactly. Y is 500, its default, where X is outside.
inline constexpr System Adder = {
    u"X/128/-128/Low,-128,-128,-128,128;High,-128,128,128,128",
    u"Y/1000/0/Zero,0;Top,256",
    u"X>Low/Y<Zero:1|X>High/Y<Top:1",
};

/// As Adder, with Z = 256 - X - 128 for a second output and a default of 600.
inline constexpr System TwoOutputs = {
    u"X/128/-128/Low,-128,-128,-128,128;High,-128,128,128,128",
    u"Y/1000/0/Zero,0;Top,256|Z/1200/0/Zero,0;Top,256",
    u"X>Low/Y<Zero;Z<Top:1|X>High/Y<Top;Z<Zero:1",
};

/// Sum = 4 A + B for A in 0..2 and B in 0..4, at every grid point of two divisions.
inline constexpr System TwoInputs = {
    u"A/2/0/Low,0,0,0,2;High,0,2,2,2|B/4/0/Low,0,0,0,4;High,0,4,4,4",
    u"Sum/12/0/None,0;Four,4;Eight,8;Twelve,12",
    u"A>Low;B>Low/Sum<None:1|A>Low;B>High/Sum<Four:1|"
    u"A>High;B>Low/Sum<Eight:1|A>High;B>High/Sum<Twelve:1",
};

/// The stored form of a text of printable ASCII: every character as its two hexadecimal digits,
/// the low one first.
Text Stored(TextView plain);

/// The properties that a host has kept of a control with this system.
std::map<Text, Com::Variant> PropertiesOf(const System& system);

} // namespace Quorvane
