' Stock report: reads the counts of a small store room from a text file, works out what has to be
' ordered and writes the result as a table.
'
' A line of the count file is
'     article;shelf;count;minimum;price
' Lines that start with a hash are notes of the person who counted.

Option Explicit

Const ForReading = 1
Const ForWriting = 2
Const MaxArticles = 500
Const ColumnGap = "  "
Const TaxRate = 0.19

Class Article
    Private mName
    Private mShelf
    Private mCount
    Private mMinimum
    Private mPrice

    Public Property Get Name()
        Name = mName
    End Property

    Public Property Let Name(ByVal value)
        mName = Trim(value)
    End Property

    Public Property Get Shelf()
        Shelf = mShelf
    End Property

    Public Property Let Shelf(ByVal value)
        mShelf = UCase(value)
    End Property

    Public Property Get Count()
        Count = mCount
    End Property

    Public Property Let Count(ByVal value)
        If value < 0 Then
            mCount = 0
        Else
            mCount = value
        End If
    End Property

    Public Property Let Minimum(ByVal value)
        mMinimum = value
    End Property

    Public Property Get Price()
        Price = mPrice
    End Property

    Public Property Let Price(ByVal value)
        mPrice = value
    End Property

    Public Default Function Describe()
        Describe = mName & " on shelf " & mShelf & ": " & mCount
    End Function

    ' How many pieces bring the shelf back to twice its minimum.
    Public Function Missing()
        If mCount >= mMinimum Then
            Missing = 0
        Else
            Missing = 2 * mMinimum - mCount
        End If
    End Function
End Class

Dim articles(500)
Dim articleCount
Dim notes()
Dim noteCount

articleCount = 0
noteCount = 0

Sub AddNote(ByRef text)
    ReDim Preserve notes(noteCount)
    notes(noteCount) = text
    noteCount = noteCount + 1
End Sub

Sub ClearNotes()
    Erase notes
    noteCount = 0
End Sub

Function ParseLine(ByVal line)
    Dim parts, item
    parts = Split(line, ";")
    If UBound(parts) <> 4 Then
        Set ParseLine = Nothing
        Exit Function
    End If
    Set item = New Article
    item.Name = parts(0)
    item.Shelf = parts(1)
    item.Count = CLng(parts(2))
    item.Minimum = CLng(parts(3))
    item.Price = CDbl(parts(4))
    Set ParseLine = item
End Function

Sub ReadArticles(ByVal fileName)
    Dim files, stream, line, item
    Set files = CreateObject("Store.TextFiles")
    If Not files.Exists(fileName) Then
        AddNote "There is no file """ & fileName & """."
        Exit Sub
    End If
    Set stream = files.Open(fileName, ForReading)
    Do While Not stream.AtEndOfStream And articleCount < MaxArticles
        line = stream.ReadLine
        If Left(line, 1) = "#" Then
            AddNote Mid(line, 2)
        ElseIf Len(line) > 0 Then
            On Error Resume Next
            Set item = ParseLine(line)
            If Err.Number <> 0 Then
                AddNote "Not understood: " & line
                Err.Clear
            ElseIf Not item Is Nothing Then
                Set articles(articleCount) = item
                articleCount = articleCount + 1
            End If
            On Error Goto 0
        End If
    Loop
    stream.Close
End Sub

Rem Insertion sort by shelf and name: the list is short and mostly in order already.
Sub SortArticles()
    Dim i, j, item
    For i = 1 To articleCount - 1
        Set item = articles(i)
        j = i - 1
        Do Until j < 0
            If SortKey(articles(j)) <= SortKey(item) Then Exit Do
            Set articles(j + 1) = articles(j)
            j = j - 1
        Loop
        Set articles(j + 1) = item
    Next
End Sub

Function SortKey(ByVal item)
    SortKey = item.Shelf & "/" & LCase(item.Name)
End Function

Function PadRight(ByVal text, ByVal width)
    If Len(text) >= width Then
        PadRight = Left(text, width)
    Else
        PadRight = text & Space(width - Len(text))
    End If
End Function

Function PadLeft(ByVal text, ByVal width)
    PadLeft = Right(Space(width) & text, width)
End Function

Function OrderLine(ByVal item)
    Dim cost
    cost = item.Missing() * item.Price * (1 + TaxRate)
    OrderLine = PadRight(item.Shelf, 6) & ColumnGap & _
                PadRight(item.Name, 28) & ColumnGap & _
                PadLeft(item.Missing(), 6) & ColumnGap & _
                PadLeft(FormatNumber(cost, 2), 12)
End Function

Function TotalCost()
    Dim i, sum
    sum = 0.0
    For i = 0 To articleCount - 1
        sum = sum + articles(i).Missing() * articles(i).Price
    Next
    TotalCost = sum * (1 + TaxRate)
End Function

Function WeekOfYear(ByVal day)
    Dim days
    days = DateDiff("d", DateSerial(Year(day), 1, 1), day)
    WeekOfYear = days \ 7 + 1
End Function

Sub WriteReport(ByVal fileName)
    Dim files, stream, i, entry
    Set files = CreateObject("Store.TextFiles")
    Set stream = files.Open(fileName, ForWriting, True)
    With stream
        .WriteLine "Order list, week " & WeekOfYear(Date)
        .WriteLine String(58, "-")
        For i = 0 To articleCount - 1
            If articles(i).Missing() > 0 Then .WriteLine OrderLine(articles(i))
        Next
        .WriteLine String(58, "-")
        .WriteLine PadLeft(FormatNumber(TotalCost(), 2), 58)
        If noteCount > 0 Then
            .WriteLine
            .WriteLine "Notes"
            For Each entry In notes
                .WriteLine "  * " & entry
            Next
        End If
        .Close
    End With
End Sub

Sub PickSample()
    Dim index
    Randomize
    index = Int(Rnd * articleCount)
    Select Case articles(index).Shelf
        Case "A", "B"
            AddNote "Count the front shelves again: " & articles(index).Name
        Case Else
            AddNote "Count again: " & articles(index).Name
    End Select
End Sub

Sub Main()
    Dim tries
    tries = 0
    While articleCount = 0 And tries < 3
        ClearNotes
        ReadArticles "counts" & tries & ".txt"
        tries = tries + 1
    Wend
    If articleCount = 0 Then
        MsgBox "Nothing was counted."
    Else
        SortArticles
        PickSample
        WriteReport "orders.txt"
    End If
End Sub

Main
