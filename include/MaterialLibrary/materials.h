/*
 * Printed-circuit-board materials for C, and for every language that can call C.
 *
 * libmaterials (materials.dll on Windows) reads the material files that MaterialLibrary.dll reads and gives
 * the same answers, for many frequencies in one call, without a window and without a message box.
 *
 *     const char* path = "laminates.mat";
 *     ml_library* library = NULL;
 *     if (ml_open_files(&path, 1, ML_OPEN_DEFAULT, &library) == ML_OK)
 *     {
 *         const ml_material* core = ml_find(library, "FR4 Standard Core 0.20 mm");
 *         const double f[2] = {1e9, 10e9};
 *         double er[2];
 *         if (core != NULL && ml_values(core, ML_ER, 25.0, ML_AS_MEASURED, f, 2, er, NULL) == ML_OK)
 *         {
 *             printf("%g %g\n", er[0], er[1]);
 *         }
 *     }
 *     ml_close(library);
 *
 * - Units: Hz, degrees Celsius, m, ohm m. Er, loss tangent and roughness factors have none. A permittivity
 *   is er - j er tan(delta): its imaginary part is negative in a lossy material.
 *
 * - Texts: end with NUL. Paths are UTF-8 on every system. Names, types, vendors and comments are the bytes
 *   of their file, whatever its encoding.
 *
 * - Lifetime: materials, rows, texts and diagnostics belong to their library and live until ml_close. A
 *   model is an object of its own, lives until ml_free_model and needs no library. A builder copies what it
 *   is given and lives until ml_free_builder; what it has built needs no builder.
 *
 * - Threads: nothing changes between opening and closing. Every function may be called for the same
 *   library, material or model from any number of threads at once, except the one that ends its life,
 *   which comes last. Libraries are independent of each other. A builder is for one thread at a time.
 *
 * - Errors: a function that can fail returns ml_error and leaves its outputs as they were when that is not
 *   ML_OK. Nothing throws, prints, or ends the process. A null pointer where none is allowed gives
 *   ML_ERROR_ARGUMENT; functions that return a number or a pointer answer 0 or null then. An array of
 *   count 0 may be null.
 *
 * - Versions: a struct that may grow begins with struct_size, which the caller sets to its own sizeof.
 *   Fields that the caller does not know are not written; fields that the library does not know are left
 *   as they were. A struct_size below that of the struct's first version gives ML_ERROR_ARGUMENT. Structs
 *   without it never change.
 */
#ifndef MATERIALLIBRARY_MATERIALS_H
#define MATERIALLIBRARY_MATERIALS_H

#include <stddef.h>
#include <stdint.h>

/* How C++ sees C. */
#ifdef __cplusplus
#define ML_EXTERN extern "C"
#else
#define ML_EXTERN extern
#endif

/* Stands before each function. ML_STATIC_MATERIALS is for programs that the library itself is linked into. */
#if defined(_WIN32) && !defined(ML_STATIC_MATERIALS)
#define ML_API ML_EXTERN __declspec(dllimport)
#else
#define ML_API ML_EXTERN
#endif

/* NOLINTBEGIN(modernize-use-using): for C */
typedef struct ml_library ml_library;   /* the materials of some files */
typedef struct ml_material ml_material; /* one of them */
typedef struct ml_model ml_model;       /* a dielectric's permittivity as a function of frequency */
typedef struct ml_builder ml_builder;   /* materials that are being made */

/* What a function that can fail returns: one of the values below. */
typedef int32_t ml_error;

/* Errors. */
enum
{
    ML_OK = 0,               /* none */
    ML_ERROR_ARGUMENT = 1,   /* null, out of range, an unknown flag, or a struct_size that is too small */
    ML_ERROR_MEMORY = 2,     /* there is not enough */
    ML_ERROR_NO_DATA = 3,    /* the material has no rows to answer from */
    ML_ERROR_NO_FIT = 4,     /* its rows allow no model */
    ML_ERROR_INTERNAL = 5,   /* a defect of this library */
    ML_ERROR_UNWRITABLE = 6, /* no file can hold these materials */
    ML_ERROR_EXISTS = 7,     /* there is a file already */
    ML_ERROR_WRITE = 8       /* the system does not let the file be written */
};

/* What the error means, as an English sentence; never null, also for a number that is no error. */
ML_API const char* ml_error_text(ml_error error);

/* "1.0.0": the version that is running. MaterialLibrary/Version.h has the one compiled against. */
ML_API const char* ml_version(void);

/* ---- Opening ---- */

/* Flags of opening. */
enum
{
    ML_OPEN_DEFAULT = 0, /* Every file that is good gives its materials, whatever the others hold. */
    /* A file with an error empties the library of all that was read before, as in MaterialLibrary.dll. */
    ML_OPEN_ERROR_EMPTIES = 1
};

/*
 * Reads files in the order given. *library is a new library, also where some or all files were bad: look
 * at ml_count_diagnostics. ML_ERROR_ARGUMENT (also for a path that is null) and ML_ERROR_MEMORY make
 * none.
 */
ML_API ml_error ml_open_files(const char* const* paths, size_t count, uint32_t flags, ml_library** library);

/*
 * The same for one file's text in memory, which is copied. `name` is what a diagnostic calls it. A NUL
 * within `length` ends the text, as it does in a file.
 */
ML_API ml_error ml_open_text(const char* text, size_t length, const char* name, uint32_t flags,
                             ml_library** library);

/* Releases the library and everything that belongs to it. Null does nothing. */
ML_API void ml_close(ml_library* library);

/* Why a file gave no materials. */
typedef struct ml_diagnostic
{
    size_t struct_size; /* sizeof, set by the caller */
    const char* file;   /* the path, or the name, as it was given */
    uint32_t line;      /* from 1; 0: the file could not be read */
    uint32_t column;    /* up to where that line was read, from 1; 0: nothing of the line was read */
    const char* reason; /* what was expected there, or what the system says of the file */
} ml_diagnostic;

/* At most one for each file, in their order. */
ML_API size_t ml_count_diagnostics(const ml_library* library);

/* The diagnostic at index, 0 ... ml_count_diagnostics - 1. ML_ERROR_ARGUMENT for any other. */
ML_API ml_error ml_get_diagnostic(const ml_library* library, size_t index, ml_diagnostic* diagnostic);

/* ---- Materials ---- */

/* Kinds of material. */
enum
{
    ML_DIELECTRIC = 0, /* a laminate */
    ML_METAL = 1       /* a conductor */
};

/* Technologies of dielectrics. */
enum
{
    ML_TECHNOLOGY_UNKNOWN = -1, /* not given, or none of these words */
    ML_CORE = 0,                /* Core */
    ML_PREPREG = 1,             /* Prepreg */
    ML_FLEXCORE = 2             /* Flexcore */
};

/* How many the library has. */
ML_API size_t ml_count_materials(const ml_library* library);

/* The material at index, in the order of the files; null when index is out of range. */
ML_API const ml_material* ml_get_material(const ml_library* library, size_t index);

/*
 * The material of that name, byte by byte, in constant time; the one read last where several share it. Null
 * when there is none or the name is empty.
 */
ML_API const ml_material* ml_find(const ml_library* library, const char* name);

/* What a file says of a material besides its tables. */
typedef struct ml_material_info
{
    size_t struct_size;       /* sizeof, set by the caller */
    const char* name;         /* this and the other texts: empty when not given, never null */
    const char* type;         /* of laminate or conductor, for example "FR4" */
    const char* vendor;       /* who makes it */
    const char* comment;      /* free text */
    int32_t kind;             /* ML_DIELECTRIC or ML_METAL */
    int32_t technology;       /* of a dielectric */
    uint32_t has_thickness;   /* 1: thickness is given; 0: it is not, and thickness is NaN */
    uint32_t has_resistivity; /* likewise */
    double thickness;         /* m */
    double resistivity;       /* ohm m */
    size_t table_count;       /* how many ml_get_table can give */
} ml_material_info;

/* What the file says of the material. ML_ERROR_ARGUMENT. */
ML_API ml_error ml_get_info(const ml_material* material, ml_material_info* info);

/* Every kind, or every technology. */
#define ML_ANY INT32_MIN

/* Which materials. Set struct_size, call ml_filter_all, then narrow. */
typedef struct ml_filter
{
    size_t struct_size;   /* sizeof, set by the caller */
    int32_t kind;         /* ML_ANY or a kind */
    int32_t technology;   /* ML_ANY or a technology */
    const char* type;     /* null, or the type, byte by byte */
    const char* vendor;   /* null, or the vendor, byte by byte */
    double thickness_min; /* m; a material without thickness passes only -infinity to infinity */
    double thickness_max; /* both ends belong to the range */
} ml_filter;

/* Lets every material pass: any kind and technology, null for the texts, -infinity to infinity. */
ML_API ml_error ml_filter_all(ml_filter* filter);

/*
 * The first material at or after *index that passes; *index becomes the place behind it, to go on from.
 * Null, with *index the number of materials, when there is no more; null, with *index as it was, for a
 * bad argument.
 *
 *     size_t i = 0;
 *     while ((material = ml_next(library, &filter, &i)) != NULL)
 */
ML_API const ml_material* ml_next(const ml_library* library, const ml_filter* filter, size_t* index);

/* ---- Tables ---- */

/* Properties, each the kind of a table. */
enum
{
    ML_ER = 0,              /* relative permittivity (dielectrics) */
    ML_LOSS_TANGENT = 1,    /* (dielectrics) */
    ML_ROUGHNESS_TOP = 2,   /* roughness factor of the top face (metals) */
    ML_ROUGHNESS_BOTTOM = 3 /* roughness factor of the bottom face (metals) */
};

/* One row of a table. */
typedef struct ml_row
{
    double frequency; /* Hz */
    double value;     /* the property there */
} ml_row;

/* One property at one temperature. */
typedef struct ml_table
{
    size_t struct_size; /* sizeof, set by the caller */
    int32_t property;   /* ML_ER ... ML_ROUGHNESS_BOTTOM */
    double temperature; /* degrees Celsius */
    const ml_row* rows; /* as they stand in the file: not sorted, a frequency possibly several times */
    size_t row_count;   /* one row is a constant; with none, rows is null */
} ml_table;

/* The table at index, 0 ... table_count - 1, as in the file. ML_ERROR_ARGUMENT for any other. */
ML_API ml_error ml_get_table(const ml_material* material, size_t index, ml_table* table);

/* ---- Values ---- */

/* The status of a value: how it came about, in the low four bits, and what is added for the temperature. */
enum
{
    ML_FROM_ROW = 0,         /* measured at exactly this frequency */
    ML_FROM_CONSTANT = 1,    /* the table's only row */
    ML_FROM_MODEL = 2,       /* the model, within the frequencies of the rows that it was fitted to */
    ML_FROM_MODEL_BELOW = 3, /* the model, below the lowest of them: extrapolated; NaN counts as below */
    ML_FROM_MODEL_ABOVE = 4, /* the model, above the highest of them: extrapolated */
    ML_BETWEEN_ROWS = 5,     /* a roughness factor from the rows on both sides of the frequency */
    ML_OUTSIDE_ROWS = 6,     /* a roughness factor below the lowest or above the highest row */
    ML_NO_FIT = 7,           /* the rows allow no model; the value is -1 */
    ML_NO_DATA = 8,          /* no table to answer from, or no rows in it; the value is NaN */
    ML_STATUS_SOURCE = 15,   /* mask of the sources above */

    /* Beside the source, where there is no table within 0.1 degrees of the temperature: */
    ML_TEMPERATURE_NEAREST = 16, /* the rows are those of the nearest temperature: all lie on one side */
    ML_TEMPERATURE_BETWEEN = 32  /* the row is a constant made from the temperatures below and above */
};

/* Flags of ml_values, which can be added. */
enum
{
    /*
     * Each value is the one that IMaterial::GetValue of a library opened a moment ago gives to this
     * single question, to the last bit: rows answer with themselves, the model between them. A sweep that
     * meets rows jumps there.
     */
    ML_AS_MEASURED = 0,
    /* Er and loss tangent come from the model at every frequency: smooth and causal. */
    ML_MODEL_EVERYWHERE = 1,
    /*
     * A roughness factor lies on the straight line through the rows on both sides, and beyond the lowest
     * and the highest row keeps its value. Without the flag the lower row's value is missing between
     * rows: hosts are calibrated to that.
     */
    ML_STRAIGHT_ROUGHNESS = 2
};

/*
 * The property at `count` frequencies and one temperature: values[i] and status[i] for frequencies[i];
 * status may be null. One fit serves all. NaN and infinite frequencies are questions like others. Fails
 * with ML_ERROR_ARGUMENT and ML_ERROR_MEMORY only: that data are missing is a status.
 */
ML_API ml_error ml_values(const ml_material* material, int32_t property, double temperature, uint32_t flags,
                          const double* frequencies, size_t count, double* values, uint8_t* status);

/* ---- The model ---- */

/*
 * The wideband Debye model that values between rows come from, for one temperature:
 *
 *     eps(f) = eps_inf + sum over terms of delta_eps / ln(f2 / f1) * ln((f2 + j f) / (f1 + j f))
 *
 * (A. R. Djordjevic, R. M. Biljic, V. D. Likar-Smiljanic, T. K. Sarkar: Wideband frequency-domain
 * characterization of FR-4 and time-domain causality. IEEE Transactions on Electromagnetic Compatibility
 * 43, 2001.) Its real part is Er, -imaginary / real the loss tangent. Passive where no delta_eps is
 * negative.
 *
 * Fails with ML_ERROR_NO_DATA where the material has no rows of Er or none of the loss tangent, with
 * ML_ERROR_NO_FIT where both are constants or the rows allow no model.
 */
ML_API ml_error ml_make_model(const ml_material* material, double temperature, ml_model** model);

/* One term of a model. */
typedef struct ml_term
{
    double f1;        /* Hz, above 0 */
    double f2;        /* Hz, above f1 */
    double delta_eps; /* the step of permittivity that the term carries from f1 to f2 */
} ml_term;

/*
 * The model with these parameters, for example read from a file of the caller's. All are finite, corner
 * frequencies from 1e-150 to 1e150.
 */
ML_API ml_error ml_make_model_from_terms(double eps_inf, const ml_term* terms, size_t count,
                                         ml_model** model);

/* Releases the model. Null does nothing. */
ML_API void ml_free_model(ml_model* model);

/* What there is to a model. */
typedef struct ml_model_info
{
    size_t struct_size;    /* sizeof, set by the caller */
    double eps_inf;        /* permittivity far above the highest term */
    size_t term_count;     /* how many ml_get_term can give */
    double frequency_min;  /* Hz, the rows fitted to; 0 and 0 for a model made from terms */
    double frequency_max;  /* Hz */
    size_t residual_count; /* the rows of both tables; 0 for a model made from terms */
    uint32_t temperature;  /* ML_TEMPERATURE_NEAREST and ML_TEMPERATURE_BETWEEN as in a status, or 0 */
} ml_model_info;

/* Constant, range and counts of the model. ML_ERROR_ARGUMENT. */
ML_API ml_error ml_get_model_info(const ml_model* model, ml_model_info* info);

/* The term at index, 0 ... term_count - 1; after a fit in ascending order. ML_ERROR_ARGUMENT for any other.
 */
ML_API ml_error ml_get_term(const ml_model* model, size_t index, ml_term* term);

/* How far the model passes from a row. */
typedef struct ml_residual
{
    int32_t property;   /* ML_ER or ML_LOSS_TANGENT */
    uint32_t is_fitted; /* 1: the row took part; 0: it is a loss tangent below 10 kHz, which does not */
    double frequency;   /* Hz */
    double value;       /* the row's */
    double residual;    /* the model's value there less the row's */
} ml_residual;

/* The residual at index, 0 ... residual_count - 1: the rows of Er, then those of the loss tangent. */
ML_API ml_error ml_get_residual(const ml_model* model, size_t index, ml_residual* residual);

/* Real and imaginary part of the permittivity at `count` frequencies. Either output may be null. */
ML_API ml_error ml_permittivity(const ml_model* model, const double* frequencies, size_t count, double* real,
                                double* imaginary);

/* One single Debye pole. */
typedef struct ml_pole
{
    double frequency; /* Hz, where the pole's loss is largest */
    double delta_eps; /* the step of permittivity that the pole carries */
} ml_pole;

/*
 * The same permittivity as a sum of single Debye poles, which is what time-domain solvers take:
 *
 *     eps(f) = eps_inf + sum over poles of delta_eps / (1 + j f / frequency)
 *
 * with the model's eps_inf. A term is an integral over such poles, spread evenly over ln f from f1 to f2
 * (the paper named above); Gauss and Legendre's rule takes `per_decade` of them, 1 to 20, from each
 * decade. The poles of a term add up to its delta_eps, so that the limits at low and high frequency stay;
 * a term of 0 gives none.
 *
 * *count becomes the number of poles; the first `capacity` of them are written, so that a call with null
 * and 0 asks how many there are. *worst_error, which may be null, becomes the largest |sum of poles -
 * model| / |model| over band_min to band_max (Hz, 0 < band_min <= band_max), sampled at 100 frequencies a
 * decade.
 */
ML_API ml_error ml_debye_poles(const ml_model* model, uint32_t per_decade, double band_min, double band_max,
                               ml_pole* poles, size_t capacity, size_t* count, double* worst_error);

/* ---- Making and writing ---- */

/*
 * A builder, empty at first. It makes materials in memory that answer like those of a file:
 *
 *     ml_material_info info = {sizeof info, "Core A", "FR4", "", "", ML_DIELECTRIC, ML_CORE};
 *     ml_row er[2] = {{1e9, 4.22}, {10e9, 4.094}};
 *     ml_table table = {sizeof table, ML_ER, 25.0, er, 2};
 *     ml_add_material(builder, &info);
 *     ml_add_table(builder, &table);
 */
ML_API ml_error ml_make_builder(ml_builder** builder);

/* Releases the builder. Null does nothing. */
ML_API void ml_free_builder(ml_builder* builder);

/*
 * Appends a material without tables. A text may be null for one not given; an unknown technology is
 * ML_TECHNOLOGY_UNKNOWN, and that of a metal does not count. table_count does not count either.
 */
ML_API ml_error ml_add_material(ml_builder* builder, const ml_material_info* info);

/* Appends a table to the material that was added last. ML_ERROR_ARGUMENT where there is none. */
ML_API ml_error ml_add_table(ml_builder* builder, const ml_table* table);

/*
 * The materials added so far as a library of their own, as if read from a file. The builder stays as it is.
 * ML_ERROR_UNWRITABLE where no file can hold them: dielectrics beside metals, a double quote in a text, a
 * number that is NaN, a thickness or table of the other kind. `reason`, which may be null, becomes a
 * sentence that says what is wrong, cut to `capacity` bytes with its NUL.
 */
ML_API ml_error ml_build(const ml_builder* builder, ml_library** library, char* reason, size_t capacity);

/* Flags of writing. */
enum
{
    ML_WRITE_NEW = 0,    /* A file that is there stays: ML_ERROR_EXISTS. */
    ML_WRITE_REPLACE = 1 /* It is replaced and keeps its permissions; a link leads to what is replaced. */
};

/*
 * Writes materials, of whatever libraries, into one material file, as a whole or not at all: a reader sees
 * the old file or the new one. What is read from it has the same texts, numbers bit for bit, tables and rows
 * in the same order. Comments of the files that they came from are not theirs. Fails with
 * ML_ERROR_ARGUMENT (also for a material that is null), ML_ERROR_UNWRITABLE (dielectrics beside metals),
 * ML_ERROR_EXISTS, ML_ERROR_WRITE and ML_ERROR_MEMORY; `reason` as above, with what the system says.
 */
ML_API ml_error ml_write_file(const char* path, const ml_material* const* materials, size_t count,
                              uint32_t flags, char* reason, size_t capacity);
/* NOLINTEND(modernize-use-using) */

#endif
