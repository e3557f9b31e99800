// The real module with real optional modules, each case in a process of its own.
#include "tests/win32/CModule.h"
#include "tests/win32/CTestFolder.h"
#include "tests/win32/RunProgram.h"

#include <gmock/gmock.h>

namespace
{
using testing::ElementsAreArray;
using Lines = std::vector<std::string>;

const std::string noDielectric = "No dielectric material found. Consider copying default library "
                                 "DefaultMaterialD.mat into executable folder.";
const Lines boxed = {"materials 0", "box MaterialLibrary (warning): " + noDielectric, "end"};

// The line of a message that came through slot 4.
std::string ShownWarning(const std::string& text)
{
    return "slot 4 0 null msgtype.GENERIC 2 " + text + " 0 null null";
}
const Lines handled = {"GetMsgHandlerManager", ShownWarning(noDielectric), "materials 0", "end"};
const Lines translated = {
    "LoadTranslationFile MATERIALLIBARY.DLL: MaterialLibrary.po",
    "mgettext MATERIALLIBARY.DLL: Er",
    "mgettext MATERIALLIBARY.DLL: Loss Tangent",
    "mgettext MATERIALLIBARY.DLL: Top Roughness Factor",
    "mgettext MATERIALLIBARY.DLL: Bottom Roughness Factor",
};

Lines Join(const std::vector<Lines>& parts)
{
    Lines all;
    for (const Lines& part : parts)
    {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

// What is expected with all of both modules in place.
const Lines complete = Join({{"UpdateLocaleDir"}, translated, {"loaded"}, handled});
const Lines plain = Join({{"loaded"}, boxed});

std::string FullPath(const std::string& path)
{
    char full[MAX_PATH] = {};
    GetFullPathNameA(path.c_str(), MAX_PATH, full, nullptr);
    return full;
}

std::string FakeFolder(const std::string& variant)
{
    return FullPath(ML_BINARY_DIR "/tests/fakes/" + variant);
}

const std::string materialHost = FullPath(ML_BINARY_DIR "/tests/material_host.exe");
const std::string messageHost = FullPath(ML_BINARY_DIR "/tests/message_host.exe");

// Sets an environment variable for the programs that are run while it lives.
class CEnvironment
{
public:
    CEnvironment(const char* variable, const std::string& value) : name(variable)
    {
        char before[32767] = {};
        GetEnvironmentVariableA(name, before, sizeof before);
        previous = before;
        SetEnvironmentVariableA(name, value.c_str());
    }
    ~CEnvironment() { SetEnvironmentVariableA(name, previous.c_str()); }
    CEnvironment(const CEnvironment&) = delete;
    CEnvironment& operator=(const CEnvironment&) = delete;

private:
    const char* name;
    std::string previous;
};

// What the host prints that gets its optional modules from `folder`.
Lines RunWithFolder(const std::string& folder)
{
    const CTestFolder current;
    const ProgramRun run =
        RunProgram(materialHost, {"--folder", folder, CModule::GetBuiltPath(), ";"}, current.GetPath());
    EXPECT_EQ(run.exitCode, 0U);
    return run.lines;
}

TEST(OptionalModules, MayBeMissing)
{
    const CTestFolder empty;
    EXPECT_THAT(RunWithFolder(empty.GetPath()), ElementsAreArray(plain));
}

TEST(OptionalModules, ComeFromFoldersThatTheHostAdded)
{
    EXPECT_THAT(RunWithFolder(FakeFolder("complete")), ElementsAreArray(complete));
}

TEST(OptionalModules, ComeFromTheHostsFolderAndFromTheModules)
{
    const CTestFolder withFakes;
    withFakes.Copy(FakeFolder("complete") + "\\gettext64.dll");
    withFakes.Copy(FakeFolder("complete") + "\\MsgHandler.dll");
    const CTestFolder current;
    const auto besideHost =
        RunProgram(withFakes.Copy(materialHost), {CModule::GetBuiltPath(), ";"}, current.GetPath());
    EXPECT_THAT(besideHost.lines, ElementsAreArray(complete));
    const auto besideModule =
        RunProgram(materialHost, {withFakes.Copy(CModule::GetBuiltPath()), ";"}, current.GetPath());
    EXPECT_THAT(besideModule.lines, ElementsAreArray(complete));
}

TEST(OptionalModules, AreNotTakenFromTheCurrentFolderOrPath)
{
    const std::string planted = FakeFolder("complete");
    char path[32767] = {};
    GetEnvironmentVariableA("PATH", path, sizeof path);
    const CEnvironment environment("PATH", planted + ";" + path);
    const ProgramRun run = RunProgram(materialHost, {CModule::GetBuiltPath(), ";"}, planted);
    EXPECT_EQ(run.exitCode, 0U);
    EXPECT_THAT(run.lines, ElementsAreArray(plain));
}

TEST(OptionalModules, TranslationNeedsAllItsEntryPointsButOne)
{
    for (const char* required : {"mgettext", "LoadTranslationFile", "SelectLocale", "GetSelectedLocaleDir"})
    {
        EXPECT_THAT(RunWithFolder(FakeFolder(std::string("without_") + required)),
                    ElementsAreArray(Join({{"UpdateLocaleDir"}, plain})))
            << required;
    }
    EXPECT_THAT(RunWithFolder(FakeFolder("without_UpdateLocaleDir")),
                ElementsAreArray(Join({translated, plain})));
}

TEST(OptionalModules, MessageHandlerNeedsItsManagerAndItsSwitch)
{
    for (const char* required : {"GetMsgHandlerManager", "IsMsgHandlerEnabled", "SetMsgHandlerEnabled"})
    {
        EXPECT_THAT(RunWithFolder(FakeFolder(std::string("without_") + required)), ElementsAreArray(plain))
            << required;
    }
    for (const char* optional : {"SetMsgHandlerRegistrator", "GetMsgHandlerRegistrator"})
    {
        EXPECT_THAT(RunWithFolder(FakeFolder(std::string("without_") + optional)),
                    ElementsAreArray(Join({{"loaded"}, handled})))
            << optional;
    }
    for (const char* state : {"disabled", "nomanager"})
    {
        const CEnvironment environment("ML_FAKE_HANDLER", state);
        EXPECT_THAT(RunWithFolder(FakeFolder("complete")),
                    ElementsAreArray(
                        Join({{"UpdateLocaleDir"}, translated, {"loaded", "GetMsgHandlerManager"}, boxed})))
            << state;
    }
}

TEST(OptionalModules, ReachEverySlotOfAManagerFromAnotherCompiler)
{
    const CTestFolder folder;
    folder.Copy(FakeFolder("complete") + "\\MsgHandler.dll");
    const ProgramRun run = RunProgram(folder.Copy(messageHost), {"slots"}, folder.GetPath());
    Lines expected = {
        "GetMsgHandlerManager",
        "slot 1 77 null t 1 text 0 cap null",
        "slot 2 77 null msgtype.GENERIC 2 text 0 cap null",
        "slot 3 0 null t 3 text 0 cap null",
        "slot 4 0 null msgtype.GENERIC 4 text 0 null null",
        "slot 5 77 id t 5 text 0 cap check",
        "slot 6 77 suppressed msgtype.GENERIC 6 text 0 cap null",
        "slot 7 0 id t 7 text 0 cap check",
        "slot 8 0 suppressed msgtype.GENERIC 8 text 0 cap check",
        "slot 9 77 null t 1 text 4 cap null",
        "slot 10 77 null msgtype.GENERIC 2 text 5 cap null",
        "slot 11 0 null t 3 text 6 cap null",
        "slot 12 0 null msgtype.GENERIC 4 text 7 cap null",
        "slot 13 77 id t 5 text 8 cap check",
        "slot 14 77 id msgtype.GENERIC 6 text 9 cap check",
        "slot 15 0 id t 7 text 10 cap check",
        "slot 16 0 id msgtype.GENERIC 8 text 11 cap check",
        "slot 0",
    };
    for (int slot = 17; slot <= 24; ++slot)
    {
        expected.push_back("slot " + std::to_string(slot));
    }
    const Lines end = {"answers 101 102 103 104 105 106 107 108 109 110 111 112 113 114 115 116 4321 1 124",
                       "slot 25", "end"};
    EXPECT_THAT(run.lines, ElementsAreArray(Join({expected, end})));
}

TEST(OptionalModules, RegistratorSuppressesPlainBoxesAndTheHandlerCanBeSwitchedOn)
{
    const CTestFolder folder;
    folder.Copy(FakeFolder("complete") + "\\MsgHandler.dll");
    const std::string host = folder.Copy(messageHost);
    const Lines end = {ShownWarning("switched on again"), "end"};
    const Lines seen = {"box message_host (warning): seen"};
    {
        const CEnvironment environment("ML_FAKE_HANDLER", "disabled");
        const Lines calls = {"GetMsgHandlerManager", "IsSuppressed suppressed", "IsSuppressed id",
                             "answers 1 1"};
        EXPECT_THAT(RunProgram(host, {"boxes"}, folder.GetPath()).lines,
                    ElementsAreArray(Join({calls, seen, end})));
    }
    const CEnvironment environment("ML_FAKE_HANDLER", "disabled noregistrator");
    EXPECT_THAT(RunProgram(host, {"boxes"}, folder.GetPath()).lines,
                ElementsAreArray(Join({{"GetMsgHandlerManager", "answers 1 1"},
                                       {"box message_host (warning): never seen"},
                                       seen,
                                       end})));
}

TEST(HostTexts, ReplaceTheReadersMessagesOnly)
{
    const CTestFolder folder;
    const std::string file = folder.Write("bad.mat", "{MAT_FILE}\n{VERSION=1.0}\n{DIELECTRIC NAME}");
    const std::string frame = "box MaterialLibrary (warning): " + file;
    const Lines ours = {"loaded", "materials 0",
                        frame +
                            ", line 3, column 16: Expected \"{\" before a material, \"(\" before a record "
                            "or \")\" after it. A keyword that is not known here is refused in the same "
                            "way.",
                        boxed[1], "end"};
    EXPECT_THAT(RunProgram(materialHost, {CModule::GetBuiltPath(), file}, folder.GetPath()).lines,
                ElementsAreArray(ours));
    const Lines theirs = {"loaded", "materials 0",
                          frame + " has a mistake in line 3 at 16, namely: the host wants a bracket",
                          boxed[1], "end"};
    const std::string hostWithTexts = FullPath(ML_BINARY_DIR "/tests/material_host_with_texts.exe");
    EXPECT_THAT(RunProgram(hostWithTexts, {CModule::GetBuiltPath(), file}, folder.GetPath()).lines,
                ElementsAreArray(theirs));
}
} // namespace
