#include "tools/matlib/CMaterialPlot.h"
#include "tools/matlib/CMaterialSet.h"
#include "tools/matlib/Console.h"
#include "tools/matlib/Json.h"
#include "tools/matlib/PictureFile.h"
#include "tools/matlib/Wording.h"
#include "tools/matlib/commands/Commands.h"

int RunPlot(const Options& options, ILibraryHost& host)
{
    const CMaterialSet set(host, options.libraryFiles);
    CMaterialPlot plot(options);
    CProgress progress =
        ShowProgress(static_cast<int>(options.materials.size() * options.temperatures.size()));
    for (const std::string& name : options.materials)
    {
        for (const double temperature : options.temperatures)
        {
            plot.Add(set.Find(name), temperature);
            progress.Advance();
        }
    }
    WritePicture(options.picturePath, plot.Render());
    PrintOutput(options.json
                    ? RenderJson({{"file", options.picturePath}, {"curves", plot.GetCurveCount()}})
                    : options.picturePath + ": " + FormatCount(plot.GetCurveCount(), "curve") + "\n");
    return set.GetExitCode();
}
