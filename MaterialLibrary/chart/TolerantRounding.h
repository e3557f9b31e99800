#pragma once

// Floor and ceiling of quotients of measured numbers: what is within 1e-12 of a whole number counts as that
// number. Every floor and ceiling of tick arithmetic goes through these two.

[[nodiscard]] double FloorTolerant(double value);
[[nodiscard]] double CeilTolerant(double value);
