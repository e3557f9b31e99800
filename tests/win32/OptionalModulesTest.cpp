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
const Lines handled = {"GetMsgHandlerManager", "slot 4 severity=2 text=" + noDielectric + " caption=null",
                       "materials 0", "end"};
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
    const Lines expected = {
        "GetMsgHandlerManager",
        "slot 1 severity=1 text=text caption=cap owner=0 type=t",
        "answer 101",
        "slot 2 severity=2 text=text caption=cap owner=0",
        "answer 102",
        "slot 3 severity=3 text=text caption=cap type=t",
        "answer 103",
        "slot 4 severity=4 text=text caption=null",
        "answer 104",
        "slot 5 severity=5 text=text caption=cap id=id check=check owner=0 type=t",
        "answer 105",
        "slot 6 severity=6 text=text caption=cap id=suppressed check=null owner=0",
        "answer 106",
        "slot 7 severity=7 text=text caption=cap id=id check=check type=t",
        "answer 107",
        "slot 8 severity=8 text=text caption=cap id=suppressed check=check",
        "answer 108",
        "slot 9 severity=1 text=text caption=cap owner=0 type=t buttons=4",
        "answer 109",
        "slot 10 severity=2 text=text caption=cap owner=0 buttons=5",
        "answer 110",
        "slot 11 severity=3 text=text caption=cap type=t buttons=6",
        "answer 111",
        "slot 12 severity=4 text=text caption=cap buttons=7",
        "answer 112",
        "slot 13 severity=5 text=text caption=cap id=id check=check owner=0 type=t buttons=8",
        "answer 113",
        "slot 14 severity=6 text=text caption=cap id=id check=check owner=0 buttons=9",
        "answer 114",
        "slot 15 severity=7 text=text caption=cap id=id check=check type=t buttons=10",
        "answer 115",
        "slot 16 severity=8 text=text caption=cap id=id check=check buttons=11",
        "answer 116",
        "slot 0",
        "answer 4321",
        "slot 17",
        "slot 18",
        "true",
        "slot 19",
        "slot 20",
        "slot 21",
        "slot 22",
        "slot 23",
        "slot 24",
        "answer 124",
        "slot 25",
        "end",
    };
    EXPECT_THAT(run.lines, ElementsAreArray(expected));
}

TEST(OptionalModules, RegistratorSuppressesPlainBoxesAndTheHandlerCanBeSwitchedOn)
{
    const CTestFolder folder;
    folder.Copy(FakeFolder("complete") + "\\MsgHandler.dll");
    const std::string host = folder.Copy(messageHost);
    const Lines end = {"slot 4 severity=2 text=switched on again caption=null", "answer 104", "end"};
    const Lines seen = {"box message_host (warning): seen"};
    {
        const CEnvironment environment("ML_FAKE_HANDLER", "disabled");
        const Lines calls = {"GetMsgHandlerManager", "IsSuppressed id=suppressed", "answer 1",
                             "IsSuppressed id=id", "answer 1"};
        EXPECT_THAT(RunProgram(host, {"boxes"}, folder.GetPath()).lines,
                    ElementsAreArray(Join({calls, seen, end})));
    }
    const CEnvironment environment("ML_FAKE_HANDLER", "disabled noregistrator");
    EXPECT_THAT(RunProgram(host, {"boxes"}, folder.GetPath()).lines,
                ElementsAreArray(Join({{"GetMsgHandlerManager", "answer 1", "answer 1"},
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
