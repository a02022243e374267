program TideTable;

// Prints a week of high and low waters from a sum of cosines.
// The figures are made up; do not sail by them.

{$APPTYPE CONSOLE}

uses
  SysUtils, Math;

type
  TConstituent = record
    Name: string;
    Amplitude: Double;   // metres
    Speed: Double;       // degrees an hour
    Phase: Double;       // degrees
  end;

  PExtreme = ^TExtreme;
  TExtreme = record
    Hour, Height: Double;
    High: Boolean;
    Next: PExtreme;
  end;

const
  Constituents: array[1..4] of TConstituent = (
    (Name: 'M2'; Amplitude: 1.42; Speed: 28.984; Phase: 132.5),
    (Name: 'S2'; Amplitude: 0.48; Speed: 30.0;   Phase: 171.0),
    (Name: 'K1'; Amplitude: 0.11; Speed: 15.041; Phase: 98.25),
    (Name: 'O1'; Amplitude: 0.09; Speed: 13.943; Phase: 11.75)
  );
  MeanLevel = 2.10;
  Step = 0.1;
  HoursPerWeek = 7 * 24;
  Bar = #$2588;

var
  First, Last: PExtreme;
  Count: Integer;

function HeightAt(AHour: Double): Double;
var
  I: Integer;
begin
  Result := MeanLevel;
  for I := Low(Constituents) to High(Constituents) do
    with Constituents[I] do
      Result := Result + Amplitude * Cos(DegToRad(Speed * AHour - Phase));
end;

procedure Append(AHour, AHeight: Double; AHigh: Boolean);
var
  Extreme: PExtreme;
begin
  New(Extreme);
  Extreme^.Hour := AHour;
  Extreme^.Height := AHeight;
  Extreme^.High := AHigh;
  Extreme^.Next := nil;
  if Last = nil then
    First := Extreme
  else
    Last^.Next := Extreme;
  Last := Extreme;
  Inc(Count);
end;

(* A turning point lies where the difference of two neighbours changes its
   sign. The step is small against the six hours between two of them, so
   none is missed. *)
procedure FindExtremes;
var
  Hour, Before, Here, After: Double;
begin
  Hour := Step;
  Before := HeightAt(0);
  Here := HeightAt(Hour);
  while Hour < HoursPerWeek do
  begin
    After := HeightAt(Hour + Step);
    if (Here > Before) and (Here >= After) then
      Append(Hour, Here, True)
    else if (Here < Before) and (Here <= After) then
      Append(Hour, Here, False);
    Before := Here;
    Here := After;
    Hour := Hour + Step;
  end;
end;

procedure PrintTable;
const
  Names: array[Boolean] of string = ('low ', 'high');
var
  Extreme: PExtreme;
  Day: Integer;
begin
  Day := -1;
  Extreme := First;
  while Extreme <> nil do
  begin
    if Trunc(Extreme^.Hour / 24) <> Day then
    begin
      Day := Trunc(Extreme^.Hour / 24);
      WriteLn;
      WriteLn('Day ', Day + 1, ':');
    end;
    WriteLn(Format('  %s %5.2f h  %5.2f m  ',
      [Names[Extreme^.High], Extreme^.Hour - 24 * Day, Extreme^.Height]),
      StringOfChar(Bar, Round(10 * Extreme^.Height)));
    Extreme := Extreme^.Next;
  end;
end;

procedure Release;
var
  Extreme: PExtreme;
begin
  while First <> nil do
  begin
    Extreme := First;
    First := Extreme^.Next;
    Dispose(Extreme);
  end;
end;

begin
  First := nil;
  Last := nil;
  Count := 0;
  FindExtremes;
  PrintTable;
  WriteLn(Count, ' turning points in a week''s water.');
  Release;
end.
