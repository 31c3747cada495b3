// The version that Windows shows for the two DLLs. Built for Windows alone: elsewhere libraries
// carry no such resource.
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

class VersionResource : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        const DWORD size = GetFileVersionInfoSizeA(GetParam(), nullptr);
        ASSERT_NE(size, 0U) << "no version resource";
        resource_.resize(size);
        ASSERT_TRUE(GetFileVersionInfoA(GetParam(), 0, size, resource_.data()));
    }

    /// A text of the resource's English block.
    std::string Text(const std::string& key) const {
        void* text = nullptr;
        UINT length = 0;
        const std::string path = "\\StringFileInfo\\040904b0\\" + key;
        if (!VerQueryValueA(resource_.data(), path.c_str(), &text, &length)) {
            return "no " + key;
        }
        return static_cast<const char*>(text);
    }

    std::vector<char> resource_;
};

TEST_P(VersionResource, CarriesTheVersionOfTheProject) {
    EXPECT_EQ(Text("FileVersion"), ZORBI2_VERSION);
    EXPECT_EQ(Text("ProductVersion"), ZORBI2_VERSION);
}

TEST_P(VersionResource, NamesFileAndProduct) {
    EXPECT_EQ(Text("OriginalFilename"), GetParam());
    EXPECT_EQ(Text("ProductName"), "ZorbI2Engine");
    EXPECT_FALSE(Text("FileDescription").empty());
}

TEST_P(VersionResource, CarriesTheVersionAsNumbersToo) {
    void* fixedPart = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueA(resource_.data(), "\\", &fixedPart, &length));
    const auto& version = *static_cast<const VS_FIXEDFILEINFO*>(fixedPart);
    const std::string text = std::to_string(HIWORD(version.dwFileVersionMS)) + "." +
                             std::to_string(LOWORD(version.dwFileVersionMS)) + "." +
                             std::to_string(HIWORD(version.dwFileVersionLS));
    EXPECT_EQ(text, ZORBI2_VERSION);
}

INSTANTIATE_TEST_SUITE_P(Dlls, VersionResource,
                         testing::Values("ZorbI2Engine.dll", "QuentaResultEngine.dll"),
                         [](const auto& row) {
                             const std::string name = row.param;
                             return name.substr(0, name.find('.'));
                         });

}  // namespace
