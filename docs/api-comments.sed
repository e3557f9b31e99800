# Makes a header's comments documentation: those before a declaration, those behind one on its line, and one on the
# first line is the file's own.
1s|^// |/// @file\n/// |
s|^( *)//( \|$)|\1///\2|
s|^(.*[^ /].*[^ ]) +// (.*)$|\1 ///< \2|
# Those of C likewise.
1s|^/\*$|/** @file|
s|^( *)/\*( [^-].*)?$|\1/**\2|
s|^(.*[^ /*].*[^ *]) +/\* (.*\*/)$|\1 /**< \2|
