/* The value of an arithmetic text. */
#ifndef INKSTONE_EXPRESSION_H
#define INKSTONE_EXPRESSION_H

#include "types.h"

INK_BEGIN

/* The value of a text such as "12*(3+4)-5": decimal numbers, the operators + - * / and parentheses,
   without spaces. * and / come before + and -, equals go from left to right, / truncates toward zero, and
   everything wraps around in 32 bits. An operator at the start applies to 0 (+ -) or 1 (* /); of several
   values that stand side by side the last one counts; an empty text and null are 0. A text of more than
   511 numbers, operators and parentheses loses the first of them and those beyond the 512th.

   A text that cannot be read is reported on the standard output, and the result is 0:

     Error: invalid char found           a byte that belongs to no number and no operator;
                                         the text follows on a line of its own, behind seven spaces
     Error: invalid operate char turn    two operators side by side; the text follows in the same way
     Error: unbalanced parentheses
     Error: zero devide error            division by zero */
INK_API int32_t string_2_number(const char *text);

INK_END

#endif
