#include "framework/Profile.h"
#include "shared/Translation/Translate.h"
#include "tests/FindImport.h"
#include "tests/TemporaryFile.h"
#include "tests/chooser/win32/CChooserFixture.h"
#include "tests/grid/win32/CGridFixture.h"

#include <commdlg.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

namespace
{
using testing::ElementsAre;

// Answers instead of a function that the program imports.
class CReplacedImport
{
public:
    CReplacedImport(const char* from, const char* function, void* replacement)
        : import(FindImport(GetModuleHandleW(nullptr), from, function)), original(*import)
    {
        *import = replacement;
    }
    ~CReplacedImport() { *import = original; }
    CReplacedImport(const CReplacedImport&) = delete;
    CReplacedImport& operator=(const CReplacedImport&) = delete;

private:
    void** import;
    void* original;
};

std::vector<std::string> menuTexts; // of the menu that was shown last; * is checked, - is not to be chosen
POINT menuPlace;
ChartCommand chosen = ChartCommand::None;

BOOL WINAPI ChooseFromMenu(HMENU menu, UINT flags, int x, int y, int, HWND owner, const RECT*)
{
    EXPECT_NE(flags & TPM_RETURNCMD, 0U);
    EXPECT_NE(owner, nullptr);
    menuPlace = {x, y};
    menuTexts.clear();
    for (int i = 0; i < GetMenuItemCount(menu); ++i)
    {
        char text[100] = {};
        GetMenuStringA(menu, static_cast<UINT>(i), text, sizeof text, MF_BYPOSITION);
        const UINT state = GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION);
        if (*text != '\0')
        {
            menuTexts.push_back(((state & MF_CHECKED) != 0  ? "*"
                                 : (state & MF_GRAYED) != 0 ? "-"
                                                            : "") +
                                std::string(text));
        }
    }
    return static_cast<BOOL>(chosen);
}

std::wstring picturePath;

BOOL WINAPI NamePictureFile(OPENFILENAMEW* question)
{
    EXPECT_NE(question->Flags & OFN_NOCHANGEDIR, 0U);
    picturePath.copy(question->lpstrFile, question->nMaxFile - 1);
    question->lpstrFile[picturePath.size()] = L'\0';
    return picturePath.empty() ? FALSE : TRUE;
}

class ChooserChart : public CChooserFixture
{
protected:
    CReplacedImport menus{"user32", "TrackPopupMenu", reinterpret_cast<void*>(ChooseFromMenu)};
    CReplacedImport files{"comdlg32", "GetSaveFileNameW", reinterpret_cast<void*>(NamePictureFile)};

    // As by Shift+F10.
    static void Use(ChartCommand command)
    {
        chosen = command;
        SendMessageW(Dialog(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(Grid().GetList()), -1);
        chosen = ChartCommand::None;
    }
    [[nodiscard]] static std::vector<std::string> Legend()
    {
        std::vector<std::string> names;
        for (const CLegendEntry& entry : Chart().GetModel().GetLegend())
        {
            names.push_back(entry.name);
        }
        return names;
    }
    [[nodiscard]] static const CAxis& Frequencies() { return *Chart().GetModel().FindAxis(0); }
    static void Zoom()
    {
        const PixelRect& plot = Chart().GetModel().frame.plot;
        const auto send = [](UINT message, int x, int y)
        { SendMessageW(Item(ML_CHART), message, 0, MAKELPARAM(x, y)); };
        send(WM_LBUTTONDOWN, plot.left + 50, plot.top + 10);
        send(WM_MOUSEMOVE, plot.left + 200, plot.top + 40);
        send(WM_LBUTTONUP, plot.left + 200, plot.top + 40);
    }
};

TEST_F(ChooserChart, HasAMenuForMouseAndKeyboard)
{
    const auto look = [&]
    {
        menuTexts.clear();
        SendMessageW(Dialog(), WM_CONTEXTMENU, 0, MAKELPARAM(1, 1));
        EXPECT_THAT(menuTexts, testing::IsEmpty()) << "beside the chart";
        RECT area{};
        GetWindowRect(Item(ML_CHART), &area);
        SendMessageW(Item(ML_CHART), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(Item(ML_CHART)),
                     MAKELPARAM(area.left + 5, area.top + 7));
        EXPECT_THAT(menuTexts, ElementsAre("&Logarithmic frequency", "-&Keep curves", "-&Forget kept curves",
                                           "-&Previous view", "&Whole view", "&Copy picture", "-Copy &values",
                                           "&Save picture...", "Move the &bar above the chart"));
        EXPECT_EQ(menuPlace.x - area.left + menuPlace.y - area.top, 12);
        Select(4, 4);
        Use(ChartCommand::LogarithmicFrequency);
        Use(ChartCommand::KeepCurves);
        Zoom();
        Use(ChartCommand::None);
        EXPECT_THAT(menuTexts, ElementsAre("*&Logarithmic frequency", "-&Keep curves", "&Forget kept curves",
                                           "&Previous view", "&Whole view", "&Copy picture", "Copy &values",
                                           "&Save picture...", "Move the &bar above the chart"));
        EXPECT_TRUE(PtInRect(&area, menuPlace));
        menuTexts.clear();
        Press(ML_CHECK_SHOW_GRAPHICALLY);
        Use(ChartCommand::None);
        EXPECT_THAT(menuTexts, testing::IsEmpty()) << "without a chart";
    };
    Choose({look});
}

std::set<std::string> translated; // longer texts than a unit's prefix

TEST_F(ChooserChart, IsTranslatedByTheExamplesCatalogueAndNothingElseIs)
{
    const TranslateFunction before = std::exchange(translate,
                                                   [](const char*, const char*, const char* text)
                                                   {
                                                       if (text[1] != '\0')
                                                       {
                                                           translated.insert(text);
                                                       }
                                                       return text;
                                                   });
    const auto use = [&]
    {
        Select(1, 1);
        Use(ChartCommand::CopyValues);
        Use(ChartCommand::LogarithmicFrequency);
    };
    Choose({use}, MLMATERIAL_DIELECTRIC);
    Choose({use}, MLMATERIAL_METAL);
    translate = before;
    std::set<std::string> catalogue;
    std::ifstream file(ML_SOURCE_DIR "/examples/translation/locale/de/MaterialLibrary.po");
    for (std::string line; std::getline(file, line);)
    {
        if (line.starts_with("msgid \""))
        {
            catalogue.insert(line.substr(7, line.rfind('"') - 7));
        }
    }
    EXPECT_EQ(translated, catalogue);
}

TEST_F(ChooserChart, RemembersALogarithmicFrequency)
{
    const auto choose = [&]
    {
        EXPECT_EQ(Frequencies().unit, "MHz");
        Use(ChartCommand::LogarithmicFrequency);
        EXPECT_EQ(Frequencies().unit, "Hz");
        Select(3, 3); // no table of several rows
        EXPECT_EQ(Chart().GetModel().GetCurveCount(), 0);
        UpdateWindow(Item(ML_CHART));
    };
    Choose({choose});
    const auto lookAgain = [&]
    {
        EXPECT_TRUE(Chart().GetModel().GetScale(Direction::Horizontal).IsLogarithmic());
        Select(4, 4);
        EXPECT_EQ(Frequencies().requestedMin, 1e9);
        EXPECT_TRUE(Chart().GetModel().GetScale(Direction::Horizontal).IsLogarithmic());
        Use(ChartCommand::LogarithmicFrequency);
        EXPECT_EQ(Frequencies().requestedMin, 1e3);
        EXPECT_FALSE(Chart().GetModel().GetScale(Direction::Horizontal).IsLogarithmic());
    };
    Choose({lookAgain});
    EXPECT_EQ(ReadProfileInteger("SelectMaterial", "LogarithmicFrequency", 7), 0);
}

TEST_F(ChooserChart, NamesItsCurvesAndKeepsThem)
{
    const auto keep = [&]
    {
        Select(4, 4);
        EXPECT_THAT(Legend(), ElementsAre("Er", "Loss Tangent"));
        Use(ChartCommand::KeepCurves);
        Select(2, 2);
        EXPECT_THAT(Legend(), ElementsAre("Er", "Core, 25 \xB0"
                                                "C"));
        EXPECT_EQ(Chart().GetModel().GetCurveCount(), 4);
        Press(ML_CHECK_SHOW_GRAPHICALLY);
        Press(ML_CHECK_SHOW_GRAPHICALLY);
        EXPECT_EQ(Legend().size(), 2U);
        UpdateWindow(Item(ML_CHART));
        Use(ChartCommand::ForgetKeptCurves);
        EXPECT_THAT(Legend(), ElementsAre("Er"));
    };
    Choose({keep});
}

TEST_F(ChooserChart, GoesBackToFormerViews)
{
    const auto zoom = [&]
    {
        Select(4, 4);
        const double whole = Frequencies().requestedMin;
        Zoom();
        const double once = Frequencies().requestedMin;
        EXPECT_GT(once, whole);
        Zoom();
        Use(ChartCommand::PreviousView);
        EXPECT_EQ(Frequencies().requestedMin, once);
        Use(ChartCommand::KeepCurves);
        EXPECT_EQ(Frequencies().requestedMin, once) << "in the same view";
        Use(ChartCommand::WholeView);
        EXPECT_EQ(Frequencies().requestedMin, whole);
        Use(ChartCommand::PreviousView);
        EXPECT_EQ(Frequencies().requestedMin, once);
        Use(ChartCommand::PreviousView);
        EXPECT_EQ(Frequencies().requestedMin, whole);
        Zoom();
        Select(2, 2);
        Use(ChartCommand::PreviousView);
        EXPECT_EQ(Frequencies().requestedMin, Frequencies().dataMin) << "not the view of another material";
    };
    Choose({zoom});
}

// How many of a bitmap's pixels have a colour, 0xRRGGBB.
std::ptrdiff_t CountPixels(HANDLE bitmap, std::uint32_t colour)
{
    const auto* const header = static_cast<const BITMAPINFOHEADER*>(GlobalLock(bitmap));
    const auto* const pixels = reinterpret_cast<const std::uint32_t*>(header + 1);
    const std::ptrdiff_t count =
        std::count_if(pixels, pixels + header->biWidth * header->biHeight,
                      [colour](std::uint32_t pixel) { return (pixel & 0xFFFFFF) == colour; });
    GlobalUnlock(bitmap);
    return count;
}

TEST_F(ChooserChart, CopiesAndSavesWhatItShows)
{
    const TemporaryFile file("chart.svg", "");
    const auto copy = [&]
    {
        Select(4, 4);
        Use(ChartCommand::CopyValues);
        EXPECT_EQ(CGridFixture::GetClipboardText(),
                  L"Frequency (MHz)\tEr\tLoss Tangent\r\n1000\t4.2\t0.02\r\n"
                  L"2000\t4.1\t0.021\r\n3000\t4\t\r\n");
        Use(ChartCommand::CopyPicture);
        ASSERT_NE(OpenClipboard(nullptr), FALSE);
        EXPECT_GT(CountPixels(GetClipboardData(CF_DIB), 0xFF0000), 100) << "the red curve";
        ENHMETAHEADER header{};
        EXPECT_NE(GetEnhMetaFileHeader(static_cast<HENHMETAFILE>(GetClipboardData(CF_ENHMETAFILE)),
                                       sizeof header, &header),
                  0U);
        EXPECT_GT(header.nRecords, 100U);
        CloseClipboard();
        picturePath = std::filesystem::path(file.GetPath()).wstring();
        Use(ChartCommand::SavePicture);
        std::ifstream picture(file.GetPath(), std::ios::binary);
        const std::string document(std::istreambuf_iterator<char>(picture), {});
        EXPECT_THAT(document, testing::HasSubstr("<svg"));
        EXPECT_THAT(document, testing::HasSubstr("Loss Tangent"));
        EXPECT_THAT(messages.boxes, testing::IsEmpty());
        picturePath = L"Z:\\no such folder\\chart.svg";
        Use(ChartCommand::SavePicture);
        ASSERT_EQ(messages.boxes.size(), 1U);
        EXPECT_THAT(messages.boxes[0].text, testing::HasSubstr("could not be written"));
        picturePath.clear(); // cancelled
        Use(ChartCommand::SavePicture);
        EXPECT_EQ(messages.boxes.size(), 1U);
    };
    Choose({copy});
}
} // namespace
