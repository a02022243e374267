#!/bin/sh
# Whether all that the installed headers offer is described: api.sh DOXYFILE
command -v doxygen >/dev/null || exit 77
exec doxygen "$1"
