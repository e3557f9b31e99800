#pragma once

// The order in which people expect texts: Layer2 before Layer10, x-5 before x-3, FR4 equal to fr4.
// Returns -1 when `first` sorts before `second`, 1 when after, 0 when they are equal under the collation
// (letters without case). Neither text may be null. Takes time in proportion to the shorter text and the
// run of digits at the first difference; allocates nothing and reads no locale.
//
// The lowest character is the end of a text; then control characters by their codes, then
// _ - + . the digits, the blank, ! " # $ % & ' ( ) * , / : ; < = > ? @ [ \ ] ^ ` { | } ~ the letters, and
// last the bytes from 127 up by their codes. A run of digits is one number, and as the first difference it
// sorts after any other character; directly after a "-" it is a negative number and all of this turns
// round. Of equal numbers the one with fewer leading zeros sorts first (last when negative).
//
// With single bytes, and with the lead and trail bytes of every code page whose trail bytes are not digits,
// this is a strict weak ordering. Where trail bytes can be digits it is antisymmetric but not transitive:
// two double-byte characters compare by their trail bytes when just one of these is a digit, otherwise by
// their lead bytes. So a sort by this comparison must stay within its range for any answers: std::sort
// does not promise that, a plain merge sort does.
[[nodiscard]] int CompareNatural(const char* first, const char* second);
