# Turns the drawn character font into the rows of a C++ array:
#
#   cmake -DINPUT=ascii_font.txt -DOUTPUT=ascii_font.inc -P AsciiFontTable.cmake
#
# The output holds one line per glyph, 15 bytes from the top row down with the
# leftmost pixel in bit 7.  The input is checked strictly, because a row that is
# lost or one pixel short would move every later glyph of the table.

cmake_minimum_required(VERSION 3.16)

set(GLYPHS 256)
set(ROWS 15)

foreach(argument INPUT OUTPUT)
  if("${${argument}}" STREQUAL "")
    message(FATAL_ERROR "AsciiFontTable.cmake needs -D${argument}=<file>")
  endif()
endforeach()
if(NOT EXISTS "${INPUT}")
  message(FATAL_ERROR "${INPUT}: no such file")
endif()

# Make a list of the lines.  The characters that have a meaning inside a list
# are replaced first (only comments may hold them), and every line gets a
# leading colon so that empty lines stay in the list and keep the count right.
file(READ "${INPUT}" text)
string(REPLACE "\r\n" "\n" text "${text}")
string(REGEX REPLACE "[][\\\\]" "?" text "${text}")
string(REPLACE ";" "%" text "${text}")
string(REGEX REPLACE "\n$" "" text "${text}")
string(REPLACE "\n" ";:" lines ":${text}")

# Values of the four pixels of half a row.
set(half_values 0 1 2 3 4 5 6 7 8 9 A B C D E F)
set(half_patterns
    0000 0001 0010 0011 0100 0101 0110 0111
    1000 1001 1010 1011 1100 1101 1110 1111)
foreach(pattern value IN ZIP_LISTS half_patterns half_values)
  set(half_${pattern} ${value})
endforeach()

set(number 0)        # number of the current line, from 1
set(glyph 0)         # code of the glyph being read, or of the next one
set(row -1)          # next row of that glyph, or -1 outside a glyph
set(must_be_empty 0) # the line just read ended a glyph
set(output "")

foreach(line IN LISTS lines)
  math(EXPR number "${number} + 1")
  string(SUBSTRING "${line}" 1 -1 line)

  if(row GREATER_EQUAL 0)
    if(NOT line MATCHES "^[.#][.#][.#][.#][.#][.#][.#][.#]$")
      message(FATAL_ERROR "${INPUT}:${number}: row ${row} of glyph ${code} must "
                          "be 8 characters of '.' and '#', not \"${line}\"")
    endif()
    string(REPLACE "." "0" line "${line}")
    string(REPLACE "#" "1" line "${line}")
    string(SUBSTRING "${line}" 0 4 left)
    string(SUBSTRING "${line}" 4 4 right)
    string(APPEND output "0x${half_${left}}${half_${right}}, ")
    math(EXPR row "${row} + 1")
    if(row EQUAL ROWS)
      string(APPEND output "// ${code} ${name}\n")
      math(EXPR glyph "${glyph} + 1")
      set(row -1)
      set(must_be_empty 1)
    endif()

  elseif(line STREQUAL "")
    set(must_be_empty 0)

  elseif(must_be_empty)
    message(FATAL_ERROR "${INPUT}:${number}: an empty line must follow the "
                        "${ROWS} rows of glyph ${code}, not \"${line}\"")

  elseif(line MATCHES "^%")
    # A comment: its semicolon was replaced above.

  elseif(glyph EQUAL GLYPHS)
    message(FATAL_ERROR "${INPUT}:${number}: nothing may follow the last glyph")

  else()
    if(NOT line MATCHES "^glyph 0x([0-9A-F][0-9A-F]) ([A-Z0-9]+([ -][A-Z0-9]+)*)$")
      message(FATAL_ERROR "${INPUT}:${number}: expected a line "
                          "\"glyph 0xNN NAME\", not \"${line}\"")
    endif()
    set(code "0x${CMAKE_MATCH_1}")
    set(name "${CMAKE_MATCH_2}")
    math(EXPR value "${code}")
    if(NOT value EQUAL glyph)
      math(EXPR wanted "${glyph}" OUTPUT_FORMAT HEXADECIMAL)
      message(FATAL_ERROR "${INPUT}:${number}: glyph ${code} is out of order, "
                          "the next one is ${wanted}")
    endif()
    set(row 0)
  endif()
endforeach()

if(row GREATER_EQUAL 0)
  message(FATAL_ERROR "${INPUT}:${number}: the file ends at row ${row} of glyph "
                      "${code}")
elseif(NOT glyph EQUAL GLYPHS)
  message(FATAL_ERROR "${INPUT}:${number}: the file ends after ${glyph} glyphs, "
                      "it must hold ${GLYPHS}")
endif()

file(WRITE "${OUTPUT}" "${output}")
