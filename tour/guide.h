#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {
class Robot;
}

namespace velmora::tour {

/// Tells the audience what is done and what comes out, keeps the pictures, and notes every figure
/// that differs from the expected one.
class Guide {
public:
    /// Works in this folder; pictures of an earlier run are removed from it.
    explicit Guide(const std::filesystem::path& folder);

    const std::filesystem::path& Folder() const { return folder_; }

    /// Begins a chapter.
    void Title(std::string_view text);
    /// Tells what is done.
    void Say(std::string_view text);
    /// Tells a result and compares it.
    void Check(std::string_view what, std::string_view seen, std::string_view expected);
    /// Compares without telling, unless it differs.
    void CheckQuietly(std::string_view what, std::string_view seen, std::string_view expected);

    /// Keeps a picture, numbered in the order of the road.
    void Picture(const Robot& robot, std::string_view name);
    /// Has the robot keep a picture of each box and dialog before it answers.
    void PictureBoxes(Robot& robot);

    /// Closes: how much was compared, what differs, where everything is. True when nothing differs.
    bool Summary() const;

private:
    std::filesystem::path folder_;
    int chapter_ = 0;
    int pictures_ = 0;
    int checks_ = 0;
    std::vector<std::string> differences_;
};

}  // namespace velmora::tour
