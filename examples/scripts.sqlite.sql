-- A sample database of scripts. Make it with:  ./run --make-sample examples/scripts.sqlite
-- `source` holds each script as text, `source_blob` the same script as bytes (UTF-8).

CREATE TABLE scripts (
    id INTEGER PRIMARY KEY,
    name TEXT NOT NULL UNIQUE,
    language TEXT NOT NULL CHECK (language IN ('pascal', 'vb', 'js', 'xml', 'sql')),
    source TEXT,
    source_blob BLOB
);

INSERT INTO scripts (name, language, source) VALUES ('Greeting by the clock', 'pascal',
'procedure FormShow(Sender: TObject);
var
  Hour: Integer;
begin
  { The greeting follows the clock of the machine. }
  Hour := HourOf(Now);
  if Hour < 11 then
    Title.Caption := ''Good morning''
  else if Hour < 18 then
    Title.Caption := ''Good day''
  else
    Title.Caption := ''Good evening'';
end;
');

INSERT INTO scripts (name, language, source) VALUES ('Postage', 'pascal',
'function Postage(Grams: Integer; Abroad: Boolean): Currency;
const
  Steps: array[0..2] of Integer = (20, 50, 500);
begin
  Result := 0.85;
  if Grams > Steps[0] then Result := 1.10;
  if Grams > Steps[1] then Result := 1.60;
  if Grams > Steps[2] then
    raise Exception.Create(''A parcel, not a letter'');
  if Abroad then
    Result := Result + $F / 100;
end;
');

INSERT INTO scripts (name, language, source) VALUES ('Overdue loans', 'vb',
'Sub CheckLoans(loans)
    Dim loan, late
    late = 0
    For Each loan In loans
        '' a week of grace, then the reminder
        If DateDiff("d", loan.Due, Now) > 7 Then
            loan.Remind "Please bring back """ & loan.Title & """"
            late = late + 1
        End If
    Next
    Status.Text = late & " reminders"
End Sub
');

INSERT INTO scripts (name, language, source) VALUES ('Round to five cents', 'vb',
'Function RoundCents(amount)
    Dim cents
    cents = Int(amount * 100 + 0.5)
    Select Case cents Mod 5
        Case 1, 2
            cents = cents - cents Mod 5
        Case 3, 4
            cents = cents + 5 - cents Mod 5
    End Select
    RoundCents = cents / 100
End Function
');

INSERT INTO scripts (name, language, source) VALUES ('Filter a list while typing', 'js',
'// Hides the rows that do not hold every typed word.
function filterRows(rows, typed) {
    var words = typed.toLowerCase().split(/\s+/);
    for (var i = 0; i < rows.length; i++) {
        var text = rows[i].caption.toLowerCase();
        rows[i].visible = words.every(function (word) {
            return text.indexOf(word) >= 0;
        });
    }
}
');

INSERT INTO scripts (name, language, source) VALUES ('Running mean', 'js',
'function RunningMean(size) {
    this.values = [];
    this.size = size;
}

RunningMean.prototype.add = function (value) {
    this.values.push(value);
    if (this.values.length > this.size)
        this.values.shift();
    /* the mean of what is there, also before the window is full */
    return this.values.reduce(function (a, b) { return a + b; }, 0) / this.values.length;
};
');

INSERT INTO scripts (name, language, source) VALUES ('Menu of the week', 'xml',
'<?xml version="1.0" encoding="UTF-8"?>
<!-- Prices in cents -->
<menu week="23">
  <day name="Monday">
    <dish price="690">Lentil soup &amp; bread</dish>
    <dish price="850">Fish with crème fraîche</dish>
  </day>
  <note><![CDATA[Closed on Tuesday <all day>]]></note>
</menu>
');

INSERT INTO scripts (name, language, source) VALUES ('Best customers', 'sql',
'-- Who bought most in a year, without returned orders
SELECT c.name, COUNT(*) AS orders, SUM(o.total) AS spent
FROM customers c
JOIN orders o ON o.customer_id = c.id
WHERE o.year = 2024 AND o.state <> ''returned''
GROUP BY c.name
HAVING SUM(o.total) > 500
ORDER BY spent DESC;
');

UPDATE scripts SET source_blob = CAST(source AS BLOB);
