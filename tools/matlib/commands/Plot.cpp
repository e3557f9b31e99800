#include "tools/matlib/CFailure.h"
#include "tools/matlib/CMaterialPlot.h"
#include "tools/matlib/CMaterialSet.h"
#include "tools/matlib/Console.h"
#include "tools/matlib/Json.h"
#include "tools/matlib/PictureFile.h"
#include "tools/matlib/Wording.h"
#include "tools/matlib/commands/Commands.h"

int RunPlot(const Options& options, ILibraryHost& host)
{
    const CMaterialSet set(host, options);
    CMaterialPlot plot(options);
    const std::vector<IMaterial*> materials = set.Select(options);
    CProgress progress = ShowProgress(static_cast<int>(materials.size() * options.temperatures.size()));
    bool isComplete = true;
    for (IMaterial* const material : materials)
    {
        for (const double temperature : options.temperatures)
        {
            isComplete = TakeOrReport(options, [&] { plot.Add(*material, temperature); }) && isComplete;
            progress.Advance();
        }
    }
    if (plot.GetCurveCount() == 0)
    {
        throw CFailure("there is nothing to draw");
    }
    WritePicture(options.picturePath, plot.Render());
    PrintOutput(options.json
                    ? RenderJson({{"file", options.picturePath}, {"curves", plot.GetCurveCount()}})
                    : options.picturePath + ": " + FormatCount(plot.GetCurveCount(), "curve") + "\n");
    if (plot.GetNamedCurveCount() < plot.GetCurveCount())
    {
        PrintProblem("the legend has room for " + std::to_string(plot.GetNamedCurveCount()) + " of " +
                     FormatCount(plot.GetCurveCount(), "curve"));
    }
    return isComplete ? set.GetExitCode() : exitFailed;
}
