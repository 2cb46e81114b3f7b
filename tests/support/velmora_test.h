#pragma once

#include <gtest/gtest.h>

#include <string_view>

#include "core/numbers.h"
#include "support/core.h"
#include "support/scripted_host.h"
#include "support/use.h"

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
class VelmoraTest : public ::testing::Test, protected Core<ScriptedHost> {
protected:
    /// Moves to the screen and gives it as what it is.
    template <class Form>
    Form& Open(ScreenId id) {
        chain.Settle();
        chain.Go(id);
        return Current<Form>();
    }

    // What a person does on the current screen.
    const Control& Find(std::string_view name) { return use::Find(chain.Current(), name); }
    void Press(std::string_view button) { use::Press(chain.Current(), button); }
    void Pick(std::string_view list, std::string_view item) {
        use::Pick(chain.Current(), list, item);
    }
    void Type(std::string_view cell, std::string_view text) {
        use::Type(chain.Current(), cell, text);
    }
    void DoubleClick(std::string_view cell) { use::DoubleClick(chain.Current(), cell); }
    void Choose(std::string_view entry) { use::Choose(chain.Current(), entry); }

    WithSeparator separator{"."};
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
