# Prepares a header for Doxygen, line by line, so that a warning names the header's own line. What the
# headers leave out where it would only be said twice is put in here:
# - A property is described once, at one of its functions (`GetX`, `IsX`, `SetX`): the others and its
#   Q_PROPERTY get that description too.
# - What overrides a function and says nothing does what its base class says.
# - A constructor that takes an owner alone, a comparison by default, a set of flags.
# - What is said above the first of the constants in a row, or of those that are declared together, is
#   said of all of them.
# - A header's own comment, without which its functions, types and constants are left out.

# The declaration that begins in a line, without its body.
function declaration(i,    s, first) {
    s = lines[i]
    first = i
    if (s ~ /^ *Q_(PROPERTY|DECLARE_FLAGS)\(/)
        while (s !~ /\)$/ && i < NR)
            s = s " " lines[++i]
    else
        while (s !~ /[;{]/ && i < NR && i < first + 6)
            s = s " " lines[++i]
    return s
}
# The property that a declaration is a function or the Q_PROPERTY of.
function property(s) {
    if (s ~ /^ *Q_PROPERTY\(/ && match(s, /[A-Za-z0-9]+ (READ|MEMBER) /)) {
        s = substr(s, RSTART)
        sub(/ .*/, "", s)
        return s
    }
    if (s !~ /^ *[A-Za-z][A-Za-z0-9_:<>,*& ]*[ *&](Get|Is|Set)[A-Z][A-Za-z0-9_]*\(/ || s ~ /^ *return /)
        return ""
    match(s, /[ *&](Get|Is|Set)[A-Z][A-Za-z0-9_]*\(/)
    s = substr(s, RSTART + 1, RLENGTH - 2)
    sub(/^(Get|Is|Set)/, "", s)
    return s
}
function implied(s) {
    if (s ~ /\) (const )?(noexcept )?(override|final)/)
        return "Does what the base class says."
    if (s ~ /^ *explicit [A-Za-z]+\(Q(Object|Widget) \*AOwner( = nullptr)?\)/)
        return "`AOwner` is the parent, which deletes it."
    if (s ~ /operator==\(.* = default;/)
        return "Whether all members are equal."
    if (match(s, /^ *Q_DECLARE_FLAGS\([A-Za-z]+, [A-Za-z]+\)/)) {
        sub(/.*, /, "", s)
        sub(/\).*/, "", s)
        return "Any number of `" s "`."
    }
    return ""
}
{
    lines[NR] = $0
    if ($0 ~ /^ *(class|struct) [^;]*$/)
        scope = $0
    scopes[NR] = scope
    begins[NR] = !inside && $0 !~ /^ *([A-Za-z_ ]+:|Q_OBJECT|Q_GADGET)$/
    if ($0 ~ /^ *\/\/\/($| )/) {
        sub(/^ *\/\/\/ */, "")
        text = text (text == "" ? "" : " ") $0
        next
    }
    behind = $0 ~ /^ *[A-Za-z].*[;}] *\/\/\/</ ? $0 : ""
    sub(/.*\/\/\/< */, "", behind)
    described[NR] = text != "" || $0 ~ /\/\/\/</
    texts[NR] = text != "" ? text : toupper(substr(behind, 1, 1)) substr(behind, 2) (behind ~ /[^.]$/ ? "." : "")
    constant = $0 ~ /^ *inline constexpr / ? (text != "" || constant == "" ? text : constant) : ""
    if (text == "" && constant != "")
        shared[NR] = constant
    if ($0 !~ /^ *(template|requires|\[\[)/)
        text = ""
    sub(/ *\/\/.*/, "")
    inside = $0 ~ /[^;{}:)>*\/]$/ && $0 !~ /^ *(#|\/\/|template|Q_)/
}
END {
    for (i = 1; i <= NR; ++i)
        if (begins[i] && (name = property(declaration(i))) != "") {
            names[i] = name
            if (texts[i] != "" && !((scopes[i], name) in told))
                told[scopes[i], name] = texts[i]
        }
    for (i = 1; i <= NR; ++i) {
        if (begins[i] && !described[i] && lines[i] ~ /^ *[A-Za-z]/) {
            said = i in names && (scopes[i], names[i]) in told ? told[scopes[i], names[i]] : \
                   i in shared ? shared[i] : implied(declaration(i))
            gsub(/\/\*/, "\\&#47;*", said)
            if (said != "")
                printf "/** %s */ ", said
        }
        line = lines[i]
        if (match(line, /^inline constexpr [a-z0-9]+ [A-Za-z0-9]+ = [^,({]*,/)) {
            joint = line
            sub(/[A-Za-z0-9]+ = .*/, "", joint)
            joint = "; /** " texts[i] " */ " joint
        }
        if (joint != "")
            gsub(/,( |$)/, joint, line)
        if (line ~ /;$/)
            joint = ""
        print (i == 1 ? "/** \\file */ " : "") line
    }
}
