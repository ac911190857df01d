// The built libraries as files: what they export, and the resources in them.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "host/forms.h"
#include "host/plugin_library.h"
#include "host/sha256.h"
#include "host/tables.h"

#if defined(_WIN32)
#include <windows.h>
#endif

namespace vantrix {
namespace {

TEST(LibraryTest, StartsInAHost) {
  std::string error;
  const auto pluginMain = host::LoadPlugin(VANTRIX_LIBRARY, &error);
  ASSERT_NE(pluginMain, nullptr) << error;
  const host::Tables tables;
  int16_t result = 99;
  EXPECT_EQ(pluginMain(kStartUp, tables.Block(), 0, &result), 1);
  EXPECT_EQ(result, 0);
  EXPECT_TRUE(tables.IsChanged(kBlend, 2));
  EXPECT_FALSE(tables.IsChanged(kBlend, 0));
}

TEST(LibraryTest, TellsTheFormOfEachKernelAndOfNothingElse) {
  std::string error;
  const auto pluginMain = host::LoadPlugin(VANTRIX_LIBRARY, &error);
  ASSERT_NE(pluginMain, nullptr) << error;
  const FormIndex* const index = host::FindFormIndex(pluginMain);
  ASSERT_NE(index, nullptr);
  const host::Tables tables;
  int16_t result;
  ASSERT_EQ(pluginMain(kStartUp, tables.Block(), 0, &result), 1);
  for (const host::SuiteEntry& suite : host::Catalog())
    for (const host::Reference& reference : suite.references) {
      const auto form = [&](Routine routine) {
        return host::FormOf(*index, suite.index, reference.slot, routine);
      };
      EXPECT_EQ(form(tables.Default(suite.index, reference.slot)), "");
      if (tables.IsChanged(suite.index, reference.slot)) {
        EXPECT_NE(form(tables.Live(suite.index, reference.slot)), "")
            << suite.name << ' ' << reference.slot;
      }
    }
}

// Published examples. The third fills a block so far that the length no longer fits.
TEST(Sha256Test, GivesThePublishedDigests) {
  const auto digest = [](const std::string& text) { return host::Sha256(text); };
  EXPECT_EQ(digest(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
  EXPECT_EQ(digest("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  EXPECT_EQ(digest("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
            "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
}

class EachLibraryTest : public ::testing::TestWithParam<const char*> {};

#if defined(_WIN32)

std::string Reversed(const char* code) {
  return std::string(code, 4).assign({code[3], code[2], code[1], code[0]});
}
std::string Word(uint32_t value) {
  std::string bytes(4, 0);
  std::memcpy(bytes.data(), &value, 4);
  return bytes;
}
std::string Property(const char* key, uint32_t length, std::string data) {
  data.resize(length);
  return Reversed("QXIM") + Reversed(key) + Word(0) + Word(length) + data;
}
std::string Pascal(const std::string& text) {
  return std::string(1, static_cast<char>(text.size())) + text;
}

struct Component {
  std::string data;
  uint32_t length;
};
// Returns the list of 8 properties of a library with this
// name. `key` stands for the name in translations.
std::string PropertyList(const std::string& name, const std::string& key, Component component) {
  const auto whole = [](const std::string& text) {
    return static_cast<uint32_t>(text.size() + 4) / 4 * 4;
  };
  const std::string translated = "$$$/OrvanePlugin/PIPLInfo/PluginName/" + key + "=" + name;
  return std::string("\1\0", 2) + Word(0) + Word(8) + Property("nabo", 4, Word(1)) +
         Property("kind", 4, Reversed("QXXM")) + Property("name", whole(name), Pascal(name)) +
         Property("znam", whole(translated), Pascal(translated)) +
         Property("vers", 4, Word(0x00020000)) + Property("prty", 4, Word(10)) +
         Property("cmpt", component.length, component.data) + Property("8664", 12, "PluginMain");
}

std::string PropertyListIn(const char* path) {
  const HMODULE library = LoadLibraryExA(path, nullptr, LOAD_LIBRARY_AS_DATAFILE);
  const HRSRC found = FindResourceExA(library, "PIPL", MAKEINTRESOURCEA(16000), 1033);
  if (!found) return "none";
  EXPECT_NE(FindResourceA(library, MAKEINTRESOURCEA(1), reinterpret_cast<LPCSTR>(RT_VERSION)),
            nullptr);
  return {static_cast<const char*>(LockResource(LoadResource(library, found))),
          SizeofResource(library, found)};
}

TEST(LibraryTest, CarriesThePropertyListByteForByte) {
  const std::string expected =
      PropertyList("Vantrix Routines", "VantrixRoutines", {Word(6) + "Vantrix", 16});
  EXPECT_EQ(expected.size(), 274u);
  EXPECT_EQ(PropertyListIn(VANTRIX_LIBRARY), expected);
}

TEST(LibraryTest, TellsTheCheckFromThePlugin) {
  EXPECT_EQ(PropertyListIn(VANTRIX_CHECK_LIBRARY),
            PropertyList("Vantrix Check", "VantrixCheck", {Word(6) + "Vantrix Check", 20}));
}

// Symbols are in a file of their own, so the library's bytes are what every host loads.
TEST(LibraryTest, StaysBelowOneAndAHalfMebibytes) {
  const auto bytes = std::filesystem::file_size(VANTRIX_LIBRARY);
  std::printf("the library has %llu bytes\n", static_cast<unsigned long long>(bytes));
  EXPECT_LT(bytes, 3u << 19);
}

TEST_P(EachLibraryTest, ExportsTheEntryPointAlone) {
  const auto base = reinterpret_cast<const uint8_t*>(LoadLibraryA(GetParam()));
  ASSERT_NE(base, nullptr);
  const auto dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto nt = reinterpret_cast<const IMAGE_NT_HEADERS64*>(base + dos->e_lfanew);
  const auto& directory = nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
  const auto exports =
      reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(base + directory.VirtualAddress);
  ASSERT_EQ(exports->NumberOfFunctions, 1u);
  ASSERT_EQ(exports->NumberOfNames, 1u);
  const auto names = reinterpret_cast<const uint32_t*>(base + exports->AddressOfNames);
  EXPECT_STREQ(reinterpret_cast<const char*>(base + names[0]), "PluginMain");

  const WORD wanted =
      IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE | IMAGE_DLLCHARACTERISTICS_NX_COMPAT | 0x20;
  EXPECT_EQ(nt->OptionalHeader.DllCharacteristics & wanted, wanted);
}

#else

TEST_P(EachLibraryTest, ExportsTheEntryPointAlone) {
  const std::string command = std::string("nm -D --defined-only ") + GetParam();
  FILE* const output = popen(command.c_str(), "r");
  ASSERT_NE(output, nullptr);
  std::vector<std::string> names;
  char line[512];
  while (std::fgets(line, sizeof line, output)) {
    const std::string text(line);
    const std::string name = text.substr(text.rfind(' ') + 1);
    if (name.rfind("__", 0) != 0) names.push_back(name);  // a sanitizer's own
  }
  pclose(output);
  EXPECT_EQ(names, std::vector<std::string>{"PluginMain\n"});
}

#endif

INSTANTIATE_TEST_SUITE_P(Libraries, EachLibraryTest,
                         ::testing::Values(VANTRIX_LIBRARY, VANTRIX_CHECK_LIBRARY));

}  // namespace
}  // namespace vantrix
