#pragma once

#include "reader/CTokenScanner.h"

class CMaterialTable;
class IReadObserver;

// Takes rows from `place` on, as many as are written plainly, into the table, and leaves `place` behind them:
// what stands there, be it the end of the table or an error, is for the reader. The text is padded. The
// observer may be null.
void ReadPlainRows(TextPlace& place, CMaterialTable& table, IReadObserver* observer);
