function f(a) { return a; }
sub class public private const dim do while loop erase execute executeglobal each in for to next
default byval byref if else elseif on error resume goto option explicit property get set let
randomize redim preserve select case wend with end
FUNCTION Sub CLASS Public PRIVATE Const DIM Do WHILE Loop ERASE Each IN For TO Next DEFAULT
exit Exit EXIT then Then THEN until Until UNTIL unitil begin Begin
functions function1 function_ _function $function if0 éif ifé
var let x of typeof instanceof new delete void null true false this
rem the rest of the line
x = 1; Rem after a statement
REM
remark
