#include "MaterialLibrary/IMaterial.h"
#include "tools/matlib/CFailure.h"
#include "tools/matlib/CMaterialSet.h"
#include "tools/matlib/Console.h"
#include "tools/matlib/Json.h"
#include "tools/matlib/Platform.h"
#include "tools/matlib/Wording.h"
#include "tools/matlib/commands/Commands.h"

namespace
{
std::string RenderChoice(const IMaterial* chosen, bool json)
{
    if (json)
    {
        return RenderJson({{"material", chosen != nullptr ? DescribeMaterial(*chosen) : Json()}});
    }
    return chosen != nullptr ? MakePrintable(chosen->GetName()) + "\n" : std::string();
}
} // namespace

int RunChoose(const Options& options, ILibraryHost& host)
{
    if (const char* const reason = DescribeMissingDialog())
    {
        throw CFailure(reason);
    }
    const CMaterialSet set(host, options);
    IMaterial* const current = options.assigned.empty() ? nullptr : &set.Find(options.assigned);
    host.ShowMessagesInBoxes();
    const IMaterial* const chosen = set.GetLibrary().ChooseMaterial(current, options.materialKind);
    PrintOutput(RenderChoice(chosen, options.json));
    if (chosen == nullptr)
    {
        PrintProblem("no material was assigned");
        return exitFailed;
    }
    return set.GetExitCode();
}
