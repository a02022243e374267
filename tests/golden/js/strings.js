"" "a" "a b" "a""b" """" "a" "b"
x = "it's" + 'single' + `template`;
"a \" b" "\\"
"// no comment" "/* nor this */"
"not closed
"not closed either ""
"	tab" "é漢"
"
