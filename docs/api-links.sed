# Makes links to documents that are no part of the reference plain text.
s/\[([^]]*)\]\([^)]*\)/\1/g
