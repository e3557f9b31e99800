#pragma once

#include "dielectric/MLDEBYETERM.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

// A causal model of a dielectric's complex permittivity over frequency, fitted to the table of relative
// permittivity (Er) and the table of loss tangent that were measured at one temperature: a sum of wideband
// Debye terms in the form of Djordjevic and Sarkar, one per interval of a grid of decades, plus a constant.
//
// Permittivity is real part + j * imaginary part, the imaginary part of a lossy material being negative. Er
// is the real part, the loss tangent is -imaginary / real. Frequencies are in hertz.
//
// Construct, PrepareData, Fit, Evaluate as often as wanted, destroy. The results are the same bit for bit
// whenever the data are. std::bad_alloc passes out of every operation and leaves the model good for being
// destroyed.
class CWidebandDebyeModel
{
public:
    // Above so many decades from the first to the last loss frequency (with the grid's margins) there is no
    // fit: no measurement spans them, and the work grows with the fourth power of their number.
    static constexpr int maxDecades = 40;

    CWidebandDebyeModel() = default;

    // Copies the fitted amplitudes with their corner frequencies, and epsInf. The copy is not ready to
    // evaluate.
    CWidebandDebyeModel(const CWidebandDebyeModel& other);
    CWidebandDebyeModel(CWidebandDebyeModel&&) = delete;
    CWidebandDebyeModel& operator=(const CWidebandDebyeModel&) = delete;
    CWidebandDebyeModel& operator=(CWidebandDebyeModel&&) = delete;
    ~CWidebandDebyeModel() = default;

    // Takes over both tables, in ascending order of frequency, at least one Er point. Er becomes a straight
    // line over ln f; of the loss tangents those from 10 kHz up are used. 1: ready for Fit. 0: null pointers
    // or fewer than two loss points (no error text); an Er point or its frequency not above 0; fewer than
    // two loss points from 10 kHz up.
    std::int32_t PrepareData(std::int32_t erCount, const double* erFrequencies, const double* erValues,
                             std::int32_t lossCount, const double* lossFrequencies, const double* lossValues);

    // Fits the terms to the prepared data. 1 on success. 0, and no longer ready: nothing prepared, prepared
    // numbers that are no permittivity over frequency (not finite, frequencies not above 0, descending, or
    // too many decades apart), or a decomposition that does not converge.
    int Fit();

    // The model's permittivity at a frequency. 0, with the outputs untouched: not ready.
    std::int32_t Evaluate(double frequency, double& realPart, double& imaginaryPart) const;

    [[nodiscard]] bool IsReady() const { return ready; }
    [[nodiscard]] std::int32_t GetTermCount() const { return termCount; }
    [[nodiscard]] std::span<const MLDEBYETERM> GetTerms() const { return terms; }
    [[nodiscard]] double GetEpsInf() const { return epsInf; }
    [[nodiscard]] std::span<const double> GetPreparedFrequencies() const { return preparedFrequencies; }
    [[nodiscard]] std::span<const double> GetPreparedRealParts() const { return preparedRealParts; }
    [[nodiscard]] std::span<const double> GetPreparedImaginaryParts() const { return preparedImaginaryParts; }
    [[nodiscard]] const std::string& GetModelName() const { return modelName; }
    [[nodiscard]] const std::string& GetErrorText() const { return errorText; }

private:
    struct MLDEBYETERMINPUT
    {
        double f1;
        double f2;
        double deltaEps;
    };

    bool HasFittableData() const;
    void StoreTerms(std::span<const double> corners, std::span<const double> amplitudes);
    void FitEpsInf();

    std::int32_t termCount = 0;
    std::vector<MLDEBYETERMINPUT> termInputs;
    double epsInf = 0.0;
    std::int32_t hasTermInputs = 0;
    std::vector<MLDEBYETERM> terms;
    std::string modelName = "default_Name";
    std::vector<double> preparedFrequencies;
    std::vector<double> preparedRealParts;
    std::vector<double> preparedImaginaryParts;
    bool ready = false;
    std::string errorText;
};
