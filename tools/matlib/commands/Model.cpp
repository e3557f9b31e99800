#include "MaterialLibrary/IMaterial.h"
#include "tools/matlib/CBulkMaterial.h"
#include "tools/matlib/CFailure.h"
#include "tools/matlib/CMaterialSet.h"
#include "tools/matlib/CTextTable.h"
#include "tools/matlib/Console.h"
#include "tools/matlib/Json.h"
#include "tools/matlib/PropertyValue.h"
#include "tools/matlib/Wording.h"
#include "tools/matlib/commands/Commands.h"

#include <algorithm>

namespace
{
using enum CTextTable::Align;

struct Poles
{
    std::vector<ml_pole> poles;
    double worstError = 0.0; // over the rows' range
};

// A fitted model in full.
struct ModelFacts
{
    ml_model_info info{};
    std::vector<ml_term> terms;
    std::vector<ml_residual> residuals;
    std::optional<Poles> poles;
    bool isPassive = true; // no term and no pole is negative
};

Poles ReadPoles(const ml_model& model, const ml_model_info& info, int perDecade)
{
    const auto ask = [&](Poles& answer, std::size_t capacity)
    {
        std::size_t count = 0;
        Require(ml_debye_poles(&model, static_cast<std::uint32_t>(perDecade), info.frequency_min,
                               info.frequency_max, answer.poles.data(), capacity, &count,
                               &answer.worstError));
        return count;
    };
    Poles answer;
    answer.poles.resize(ask(answer, 0));
    ask(answer, answer.poles.size());
    return answer;
}

ModelFacts ReadModel(const ml_model& model, int polesPerDecade)
{
    ModelFacts facts;
    facts.info.struct_size = sizeof facts.info;
    Require(ml_get_model_info(&model, &facts.info));
    facts.terms.resize(facts.info.term_count);
    for (std::size_t i = 0; i < facts.terms.size(); ++i)
    {
        Require(ml_get_term(&model, i, &facts.terms[i]));
    }
    facts.residuals.resize(facts.info.residual_count);
    for (std::size_t i = 0; i < facts.residuals.size(); ++i)
    {
        Require(ml_get_residual(&model, i, &facts.residuals[i]));
    }
    const auto isPositive = [](const auto& part) { return part.delta_eps >= 0.0; };
    facts.isPassive = std::ranges::all_of(facts.terms, isPositive);
    if (polesPerDecade > 0)
    {
        facts.poles = ReadPoles(model, facts.info, polesPerDecade);
        facts.isPassive = facts.isPassive && std::ranges::all_of(facts.poles->poles, isPositive);
    }
    return facts;
}

std::string RenderTerms(const ModelFacts& facts)
{
    CTextTable table({{"f1/Hz", right}, {"f2/Hz", right}, {"delta_eps", left}});
    for (const ml_term& term : facts.terms)
    {
        table.AddRow({FormatExactly(term.f1), FormatExactly(term.f2), FormatExactly(term.delta_eps)});
    }
    return "eps(f) = eps_inf + sum of delta_eps / ln(f2 / f1) * ln((f2 + j f) / (f1 + j f))\n" +
           table.Render(2);
}

std::string RenderResiduals(const ModelFacts& facts)
{
    CTextTable table({{"Frequency", right}, {"Property", left}, {"Row", right}, {"Model - row", right}});
    for (const ml_residual& residual : facts.residuals)
    {
        table.AddRow({FormatFrequency(residual.frequency), std::string(WordsOf(residual.property).title),
                      FormatNumber(residual.value),
                      FormatNumber(residual.residual) + (residual.is_fitted != 0 ? "" : " (not fitted)")});
    }
    return table.Render(2);
}

std::string RenderPoles(const Poles& poles)
{
    CTextTable table({{"Frequency/Hz", left}, {"delta_eps", left}});
    for (const ml_pole& pole : poles.poles)
    {
        table.AddRow({FormatExactly(pole.frequency), FormatExactly(pole.delta_eps)});
    }
    return "eps(f) = eps_inf + sum of delta_eps / (1 + j f / frequency), within " +
           FormatNumber(poles.worstError) + " of the model over the rows\n" + table.Render(2);
}

std::string RenderModel(const Options& options, const IMaterial& material, const ModelFacts& facts)
{
    std::string text =
        MakePrintable(material.GetName()) + " at " + FormatNumber(options.temperature) + " C\n";
    text += "eps_inf  " + FormatExactly(facts.info.eps_inf) + "\n";
    text += "Rows     " + FormatFrequency(facts.info.frequency_min) + " to " +
            FormatFrequency(facts.info.frequency_max) + "\n";
    text += std::string("Passive  ") + (facts.isPassive ? "yes" : "no, a delta_eps is negative") + "\n\n";
    return text +
           (facts.poles ? RenderPoles(*facts.poles) : RenderTerms(facts) + "\n" + RenderResiduals(facts));
}

Json PolesAsJson(const Poles& poles)
{
    Json list = Json::array();
    for (const ml_pole& pole : poles.poles)
    {
        list.push_back({{"frequency_hz", pole.frequency}, {"delta_eps", pole.delta_eps}});
    }
    return list;
}

Json ModelAsJson(const Options& options, const IMaterial& material, const ModelFacts& facts)
{
    Json json = {{"name", material.GetName()},
                 {"temperature_c", options.temperature},
                 {"eps_inf", facts.info.eps_inf},
                 {"from_hz", facts.info.frequency_min},
                 {"to_hz", facts.info.frequency_max},
                 {"passive", facts.isPassive},
                 {"terms", Json::array()},
                 {"residuals", Json::array()}};
    for (const ml_term& term : facts.terms)
    {
        json["terms"].push_back({{"f1_hz", term.f1}, {"f2_hz", term.f2}, {"delta_eps", term.delta_eps}});
    }
    for (const ml_residual& residual : facts.residuals)
    {
        json["residuals"].push_back({{"property", WordsOf(residual.property).key},
                                     {"frequency_hz", residual.frequency},
                                     {"value", residual.value},
                                     {"residual", residual.residual},
                                     {"fitted", residual.is_fitted != 0}});
    }
    if (facts.poles)
    {
        json["poles"] = PolesAsJson(*facts.poles);
        json["poles_error"] = facts.poles->worstError;
    }
    return json;
}
} // namespace

int RunModel(const Options& options, ILibraryHost& host)
{
    const CMaterialSet set(host, options);
    IMaterial& material = set.Find(options.material);
    const CBulkMaterial bulk(material);
    const ModelPtr model = bulk.MakeModel(options.temperature);
    if (!model)
    {
        ExplainMissingModel(material, options.temperature);
    }
    const ModelFacts facts = ReadModel(*model, options.polesPerDecade);
    PrintOutput(options.json ? RenderJson(ModelAsJson(options, material, facts))
                             : RenderModel(options, material, facts));
    if (facts.info.temperature != 0)
    {
        PrintProblem("the rows are from another temperature");
    }
    return set.GetExitCode();
}
