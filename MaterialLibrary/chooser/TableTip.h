#pragma once

#include <string>

class IMaterial;

// What the tip of a cell that shows a whole table says: the values at 1 and 10 GHz and that temperature in
// °C, a line for each. A row's value stands there as in a cell, a computed one rounded and after "~": Er and
// loss tangent by the model that a host's GetValue evaluates, a roughness factor on the straight line between
// two rows, as the chart draws it. Where there is neither, the line says so. The material keeps nothing of
// the questions.
[[nodiscard]] std::string DescribeTable(const IMaterial& material, int tableKind, double temperature);
