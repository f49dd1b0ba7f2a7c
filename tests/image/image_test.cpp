// The image that ships, read from the outside.
#include "image/loaded_image.h"

#include "qvl_version.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <iterator>

namespace {

// Names as the compilers of a host's family write them: int, bool, wide text, 64 and 32 bits.
constexpr const char* INT = "i";
constexpr const char* BOOL_TYPE = "b";
constexpr const char* TEXT_TYPE = "PKw";
constexpr const char* INT64_TYPE = "x";
constexpr const char* UINT32_TYPE = "j";

struct Accessor {
  const char* setter;
  const char* getter;
  const char* type;
};

struct RecordClass {
  const char* name;
  std::vector<Accessor> accessors;
};

const RecordClass RECORD_CLASSES[] = {
    {"QVLTreeViewItem",
     {{"SetType", "GetType", INT},
      {"SetItemName", "GetItemName", TEXT_TYPE},
      {"SetFileName", "GetFileName", TEXT_TYPE},
      {"SetSelected", "IsSelected", BOOL_TYPE},
      {"SetChecked", "IsChecked", BOOL_TYPE},
      {"SetCut", "IsCut", BOOL_TYPE},
      {"SetImageIndex", "GetImageIndex", INT},
      {"SetStateIndex", "GetStateIndex", INT},
      {"SetClientPtr", "GetClientPtr", INT64_TYPE},
      {"SetBold", "IsBold", BOOL_TYPE},
      {"SetSubItem", "GetSubItem", INT},
      {"SetIndentOffset", "GetIndentOffset", INT}}},
    {"QVLTreeViewStyleExt",
     {{"SetStyle", "GetStyle", UINT32_TYPE},
      {"SetStyleEx", "GetStyleEx", UINT32_TYPE},
      {"SetStyleExCtrl", "GetStyleExCtrl", UINT32_TYPE}}},
};

std::string Measured(const std::string& name) { return std::to_string(name.size()) + name; }

std::set<std::string> ContractNames() {
  std::set<std::string> names = {"GetIQVLTreeView", "ReleaseIQVLTreeView"};
  for (const RecordClass& record : RECORD_CLASSES) {
    const std::string name = Measured(record.name);
    names.insert("_ZN" + name + "C1Ev");
    names.insert("_ZN" + name + "D1Ev");
    for (const Accessor& accessor : record.accessors) {
      names.insert("_ZN" + name + Measured(accessor.setter) + "E" + accessor.type);
      names.insert("_ZNK" + name + Measured(accessor.getter) + "Ev");
    }
  }
  return names;
}

// What the compiler makes beside the contract for a class that is exported whole.
std::set<std::string> NamesOfTheCompiler() {
  std::set<std::string> names;
  for (const RecordClass& record : RECORD_CLASSES) {
    const std::string name = Measured(record.name);
    for (const char* prefix : {"_ZTV", "_ZTI", "_ZTS"}) names.insert(prefix + name);
    for (const char* suffix : {"C2Ev", "D0Ev", "D2Ev"}) names.insert("_ZN" + name + suffix);
  }
  return names;
}

std::set<std::string> Without(const std::set<std::string>& all, const std::set<std::string>& some) {
  std::set<std::string> rest;
  std::set_difference(all.begin(), all.end(), some.begin(), some.end(),
                      std::inserter(rest, rest.end()));
  return rest;
}

size_t CountOf(const std::string& text, const std::string& part) {
  size_t count = 0;
  for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

// A path of plain letters as 16-bit text.
std::string Widened(const std::string& text) {
  std::string wide;
  for (const char c : text) wide += {c, '\0'};
  return wide;
}

class Image : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(image.IsLoaded()); }

  std::string OnlyResource(WORD type, WORD number) {
    std::string bytes;
    int count = 0;
    for (const LoadedImage::Resource& resource : image.Resources()) {
      if (resource.type != type) continue;
      ++count;
      EXPECT_EQ(resource.number, number);
      bytes = resource.bytes;
    }
    EXPECT_EQ(count, 1);
    return bytes;
  }

  LoadedImage image{L"qvl.dll"};
};

TEST_F(Image, ExportsTheContractByNameAndNothingElse) {
  const std::set<std::string> exported = image.ExportedNames();
  const std::set<std::string> nothing;
  EXPECT_EQ(Without(ContractNames(), exported), nothing) << "is missing";
  EXPECT_EQ(Without(Without(exported, ContractNames()), NamesOfTheCompiler()), nothing)
      << "is too much";
}

TEST_F(Image, ImportsFromTheSystemAndTheHostsUtilitiesOnly) {
  const std::set<std::string> allowed = {"kernel32.dll", "msvcrt.dll", "ole32.dll",
                                         "shell32.dll",  "user32.dll", "vornutil.dll"};
  const auto imports = image.Imports();
  EXPECT_TRUE(imports.contains("vornutil.dll"));
  for (const auto& [library, names] : imports) {
    EXPECT_TRUE(allowed.contains(library)) << library;
    for (const std::string& name : names) {
      EXPECT_NE(name.rfind("ImageList_", 0), 0u) << name << " is to be looked up, not imported";
    }
  }
}

TEST_F(Image, CarriesOneManifestThatStatesTheExecutionLevelOnly) {
  const std::string manifest = OnlyResource(24, 2);
  EXPECT_EQ(CountOf(manifest, "<requestedExecutionLevel "), 1u);
  EXPECT_EQ(CountOf(manifest, "level=\"asInvoker\""), 1u);
  EXPECT_EQ(CountOf(manifest, "uiAccess=\"false\""), 1u);
  EXPECT_EQ(CountOf(manifest, "<dependency"), 0u);
}

TEST_F(Image, CarriesTheVersionOfTheProject) {
  const std::string version = OnlyResource(16, 1);
  const DWORD signature = 0xFEEF04BD;
  const size_t at =
      version.find(std::string(reinterpret_cast<const char*>(&signature), sizeof(signature)));
  ASSERT_NE(at, std::string::npos);
  VS_FIXEDFILEINFO fixed = {};
  ASSERT_LE(at + sizeof(fixed), version.size());
  std::memcpy(&fixed, version.data() + at, sizeof(fixed));

  const DWORD numbers[] = {QVL_VERSION_NUMBERS};
  EXPECT_EQ(fixed.dwFileVersionMS, numbers[0] << 16 | numbers[1]);
  EXPECT_EQ(fixed.dwFileVersionLS, numbers[2] << 16 | numbers[3]);
  EXPECT_EQ(fixed.dwProductVersionMS, fixed.dwFileVersionMS);
  EXPECT_EQ(fixed.dwProductVersionLS, fixed.dwFileVersionLS);
  EXPECT_EQ(CountOf(version, Widened(QVL_VERSION_TEXT)), 2u) << "file and product";
}

TEST_F(Image, IsBuiltForRandomAddressesAndDataThatCannotRun) {
  const WORD wanted = IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE |
                      IMAGE_DLLCHARACTERISTICS_HIGH_ENTROPY_VA | IMAGE_DLLCHARACTERISTICS_NX_COMPAT;
  EXPECT_EQ(image.Characteristics() & wanted, wanted);
}

TEST_F(Image, HoldsNoPathOfTheMachineThatBuiltIt) {
  const std::string bytes = image.FileBytes();
  ASSERT_GT(bytes.size(), 10000u);
  for (const std::string path :
       {QVL_SOURCE_FOLDER, QVL_BUILD_FOLDER, "/home/", "/root/", "/tmp/"}) {
    EXPECT_EQ(CountOf(bytes, path), 0u) << path;
    EXPECT_EQ(CountOf(bytes, Widened(path)), 0u) << path;
  }
}

}  // namespace
