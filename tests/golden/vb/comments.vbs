' a comment
'
x = 1 ' after a statement
'' two quotes "with" a string
Rem a remark
rem
remark = 1
a(* a pascal remark *)b
(* * * *)c
(**)d
(*x*y*)e
(* one character is lost after a star *x*)f
( *)
g(*
over
two lines *)h
' the last comment has no end
(* nor has this remark
