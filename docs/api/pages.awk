# Prepares a document for Doxygen: links lead to other documents as wholes; one to what is no document,
# or to a heading, is text alone.
FILENAME !~ /api\/main.md$/ {
    gsub(/\.md#[a-z0-9-]*\)/, ".md)")
    while (match($0, /\[[^]]*\]\((\.\.\/|#)[^)]*\)/)) {
        link = substr($0, RSTART + 1, RLENGTH - 2)
        sub(/\]\(.*/, "", link)
        $0 = substr($0, 1, RSTART - 1) link substr($0, RSTART + RLENGTH)
    }
}
{ print }
