Option Explicit
Class Stack
Public top, Private items()
Public Default Property Get Count
End Property
Property Let Limit(ByVal value)
Property Set Owner(ByRef value)
End Class
Const Full = 10
Dim a, b
ReDim Preserve a(4)
Erase b
Randomize
Function Max(x, y)
If x > y Then Max = x ElseIf x = y Then Max = x Else Max = y
Exit Function
End Function
Sub Walk
Do While a
Loop Until b
While a
Wend
For i = 1 To 9
For Each i In a
Next
Select Case i
Case Else
With a
On Error Resume Next
On Error Goto 0
Execute "a = 1"
ExecuteGlobal "b = 2"
End Sub
byval BYREF case CLASS const DIM do DEFAULT end EXIT each ELSE erase ERROR elseif EXECUTE explicit
EXECUTEGLOBAL for FUNCTION get GOTO in IF let LOOP next ON option PUBLIC private PROPERTY preserve
redim RESUME randomize SELECT set SUB to THEN until WHILE wend WITH
unitil rem_ byvalx xbyval by val ex exi exitt wen wende begin a h j k m q v x y z _ _if If_ if0
ifé éif
rem in lower case
REM
Rem	a tab after it
x = 1 : Rem after a statement
