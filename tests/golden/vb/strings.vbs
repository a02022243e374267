"" "a" "a b" "a""b" """" """a""" "a" "b"
x = "it's" & "'" & "rem"
"not closed
"not closed either ""
"a"b"c
"	tab" "é漢"
"
