#pragma once

#include <cstdint>
#include <deque>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "property/action.h"
#include "property/world.h"

namespace velmora::property {

/// Dice that fall alike on every platform.
class Dice {
public:
    explicit Dice(std::uint64_t seed) : random_(seed) {}

    /// 0 to n - 1.
    int Below(int n) { return static_cast<int>(random_() % static_cast<std::uint64_t>(n)); }
    int Between(int first, int last) { return first + Below(last - first + 1); }
    bool Chance(int percent) { return Below(100) < percent; }
    template <class List>
    const auto& OneOf(const List& list) {
        return list[static_cast<std::size_t>(Below(static_cast<int>(std::size(list))))];
    }

private:
    std::mt19937_64 random_;
};

/// A user who works through the screens with some purpose, and now and then does anything that the
/// screen offers.
class User {
public:
    /// A user who `meddles` also damages saved files.
    User(std::uint64_t seed, bool meddles)
        : dice_(seed), meddles_(meddles), has_many_agents_(dice_.Chance(25)) {}

    /// What the user wants to do next. It may not be on offer: then another is asked for.
    Action Next(const World& world);

private:
    void Plan(const World& world);
    void PlanForm2(const World& world);
    void PlanForm3(const World& world);
    void PlanForm4(const World& world);
    void PlanForm5(const World& world);
    void PlanForm6(const World& world);

    void PlanEntry(int day, int task, int count);
    void PlanContaminants(int task, int count);
    void PlanContaminant(int row, std::string_view group);
    void PlanMeddling(const World& world);
    void PlanMeasurements(const World& world);
    void PlanCalculation();
    void PlanDay(const World& world);

    Action AnythingOnOffer(const World& world);
    Action AnyEntry(const World& world);
    Action AnyKey(const std::string& target);
    Action Meddling(const World& world);

    void Press(std::string button);
    void Pick(std::string list, std::string item);
    void Write(std::string cell, std::string text);
    void Choose(std::string entry, int yes_percent = 50);
    void ChooseWithFile(std::string entry, bool may_be_missing);
    void Type(const std::string& cell, std::string_view keys);
    void TypeWhereLastTyped();

    int AnyCount();
    std::string AnyName();
    std::string AnyConcentration();
    std::string AnyLimit();

    Dice dice_;
    bool meddles_;
    bool has_many_agents_;   ///< tasks of up to six contaminants, in larger groups
    std::string last_cell_;  ///< where a key was last typed
    std::deque<Action> plan_;
};

}  // namespace velmora::property
