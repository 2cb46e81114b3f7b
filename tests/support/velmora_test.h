#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string_view>

#include "app/screens.h"
#include "core/chain.h"
#include "core/navigation.h"
#include "core/numbers.h"
#include "core/record.h"
#include "support/scripted_host.h"

namespace velmora::test {

/// A decimal separator for the length of a test.
class WithSeparator {
public:
    explicit WithSeparator(std::string separator) : before_(DecimalSeparator()) {
        SetDecimalSeparator(std::move(separator));
    }
    ~WithSeparator() { SetDecimalSeparator(before_); }
    WithSeparator(const WithSeparator&) = delete;
    WithSeparator& operator=(const WithSeparator&) = delete;

private:
    std::string before_;
};

/// The whole program without a toolkit: a record, the chain of the six screens, a scripted host.
/// Starts with no screen; `Open<FormN>(...)` goes to one. The separator is the point.
class VelmoraTest : public ::testing::Test {
protected:
    /// Moves to the screen and gives it as what it is.
    template <class Form>
    Form& Open(ScreenId id) {
        chain.Settle();
        chain.Go(id);
        return dynamic_cast<Form&>(chain.Current());
    }

    template <class Form>
    Form& Current() {
        return dynamic_cast<Form&>(chain.Current());
    }

    /// Presses the entry of the menu of the current screen that bears this name.
    void Choose(std::string_view entry) {
        const MenuEntry* found = chain.Current().FindEntry(entry);
        ASSERT_NE(found, nullptr) << entry;
        ASSERT_TRUE(found->Click) << entry << " has no handler";
        found->Click();
    }

    const Control& Find(const std::string& name) {
        const Control* const control = chain.Current().FindControl(name);
        if (control == nullptr) throw std::runtime_error("no control " + name);
        return *control;
    }

    WithSeparator separator{"."};
    EvaluacionRecord record;
    ScriptedHost host;
    ScreenChain chain{[this](ScreenId id) {
        return MakeScreen(id, Environment{record, chain, host});
    }};
};

/// Runs a step that must raise this run-time error.
template <class Step>
void ExpectError(ErrorKind kind, Step&& step) {
    try {
        step();
        ADD_FAILURE() << "no run-time error";
    } catch (const ErrorEjecucion& error) {
        EXPECT_EQ(error.what(), MessageOf(kind));
    }
}

inline void ExpectPlace(const Control& control, const Box& box) {
    EXPECT_EQ(control.row.box.left, box.left) << control.name;
    EXPECT_EQ(control.row.box.top, box.top) << control.name;
    EXPECT_EQ(control.row.box.width, box.width) << control.name;
    EXPECT_EQ(control.row.box.height, box.height) << control.name;
}

/// A control in its place, with its caption or starting text.
struct Placed {
    std::string_view name;
    Box box;
    std::string_view text;
};

inline void ExpectPlaced(const Control& control, const Placed& expected) {
    ExpectPlace(control, expected.box);
    if (const auto* const label = std::get_if<Label*>(&control.state)) {
        EXPECT_EQ((*label)->Caption, expected.text) << control.name;
    } else if (const auto* const button = std::get_if<Button*>(&control.state)) {
        EXPECT_EQ((*button)->Caption, expected.text) << control.name;
    } else {
        EXPECT_EQ(std::get<TextCell*>(control.state)->Text, expected.text) << control.name;
    }
}

}  // namespace velmora::test
