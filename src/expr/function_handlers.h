// The handlers of the function table, by family.

#pragma once

#include "expr/expr_call.h"

namespace tessera::expr_function {

// functions_grid.cpp
const XValue* colVal(ExprCall& call);
const XValue* keyword(ExprCall& call);
const XValue* gfAvg(ExprCall& call);
const XValue* gfMax(ExprCall& call);
const XValue* gfMin(ExprCall& call);
const XValue* gfSum(ExprCall& call);
const XValue* gfSubAvg(ExprCall& call);
const XValue* gfSubCount(ExprCall& call);
const XValue* gfSubMax(ExprCall& call);
const XValue* gfSubMin(ExprCall& call);
const XValue* gfSubRealCount(ExprCall& call);
const XValue* gfSubSum(ExprCall& call);

// functions_text.cpp
const XValue* allTrim(ExprCall& call);
const XValue* leftTrim(ExprCall& call);
const XValue* rightTrim(ExprCall& call);
const XValue* asc(ExprCall& call);
const XValue* chr(ExprCall& call);
const XValue* left(ExprCall& call);
const XValue* right(ExprCall& call);
const XValue* subStr(ExprCall& call);
const XValue* stuff(ExprCall& call);
const XValue* len(ExprCall& call);
const XValue* lower(ExprCall& call);
const XValue* upper(ExprCall& call);
const XValue* isAlpha(ExprCall& call);
const XValue* isDigit(ExprCall& call);
const XValue* isLower(ExprCall& call);
const XValue* isUpper(ExprCall& call);
const XValue* replicate(ExprCall& call);
const XValue* space(ExprCall& call);
const XValue* padC(ExprCall& call);
const XValue* padL(ExprCall& call);
const XValue* padR(ExprCall& call);

// functions_search.cpp
const XValue* at(ExprCall& call);
const XValue* atC(ExprCall& call);
const XValue* occurs(ExprCall& call);
const XValue* like(ExprCall& call);
const XValue* chrTran(ExprCall& call);
const XValue* strTran(ExprCall& call);

// functions_date.cpp
const XValue* cDow(ExprCall& call);
const XValue* cMonth(ExprCall& call);
const XValue* ctod(ExprCall& call);
const XValue* date(ExprCall& call);
const XValue* dateTime(ExprCall& call);
const XValue* day(ExprCall& call);
const XValue* dmy(ExprCall& call);
const XValue* dtoc(ExprCall& call);
const XValue* dtos(ExprCall& call);
const XValue* hour(ExprCall& call);
const XValue* mdy(ExprCall& call);
const XValue* minute(ExprCall& call);
const XValue* month(ExprCall& call);
const XValue* sec(ExprCall& call);
const XValue* seconds(ExprCall& call);
const XValue* time(ExprCall& call);
const XValue* year(ExprCall& call);

// functions_number.cpp
const XValue* abs(ExprCall& call);
const XValue* aTan(ExprCall& call);
const XValue* ceil(ExprCall& call);
const XValue* cos(ExprCall& call);
const XValue* exp(ExprCall& call);
const XValue* floor(ExprCall& call);
const XValue* integer(ExprCall& call);
const XValue* log(ExprCall& call);
const XValue* log10(ExprCall& call);
const XValue* mod(ExprCall& call);
const XValue* pi(ExprCall& call);
const XValue* round(ExprCall& call);
const XValue* sign(ExprCall& call);
const XValue* sin(ExprCall& call);
const XValue* sqrt(ExprCall& call);
const XValue* tan(ExprCall& call);
const XValue* truncate(ExprCall& call);

// functions_logic.cpp
const XValue* between(ExprCall& call);
const XValue* decode(ExprCall& call);
const XValue* empty(ExprCall& call);
const XValue* iif(ExprCall& call);
const XValue* max(ExprCall& call);
const XValue* min(ExprCall& call);
const XValue* varType(ExprCall& call);

// functions_conversion.cpp
const XValue* str(ExprCall& call);
const XValue* toInt(ExprCall& call);
const XValue* toNumber(ExprCall& call);
const XValue* toString(ExprCall& call);
const XValue* val(ExprCall& call);

}  // namespace tessera::expr_function
