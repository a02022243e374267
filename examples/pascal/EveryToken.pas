UNIT EveryToken;

{ Every kind of token that Pascal text can have, a few lines for each. }

INTERFACE

Uses Classes, Graphics;

Type
  TShape = Object
  Private
    FCorners: array[0..9] of TPoint;
    FCount: Integer;
  Protected
    Procedure Grow;
  Public
    Constructor Create;
    Destructor Destroy;
    Function Area: Extended;
  Published
    Property Count: Integer read FCount;
  End;

  TCodes = set of #32..#126;
  PShape = ^TShape;

Const
  Digits = '0123456789';
  Quoted = 'it''s said "so"';
  Empty = '';
  Escape = #27'[0m'#7#$0D;
  Mask = $00FF7F;
  Small = $a0c;
  Golden = 1.618;
  Whole = 42;

Function Describe(const AShape: TShape; var ACount: Integer; out AText: string): Boolean;

IMPLEMENTATION

Function Describe(const AShape: TShape; var ACount: Integer; out AText: string): Boolean;
begin
  { brace comment } ACount := AShape.Count; (* parenthesis comment *)
  // line comment
  Result := (ACount <> 0) and not (ACount < 1) or (ACount >= 1);
  if Result then AText := Quoted + ':' + Digits else AText := Empty;
  (* over
     two lines { with a brace } // and slashes
  *) ACount := ACount + 1; { over
     two lines (* with a star *)
  }
end;

Constructor TShape.Create;
begin
  Inherited Init;
  FCount := 0;
end;

Destructor TShape.Destroy;
begin
end;

Procedure TShape.Grow;
begin
  Try
    FCorners[FCount] := Point(10 * FCount, -FCount);
    Inc(FCount);
  Except
    on E: Exception do
      Raise;
  End;
End;

Function TShape.Area: Extended;
Var
  I: Integer;
  P: PShape;
  Notify: TNotifyEvent;
begin
  P := @Self;
  Result := 0.0;
  I := 0;
  Repeat
    With P^ Do
      Result := Result + FCorners[I].X * FCorners[I + 1].Y / 2;
    I := I + 1;
  Until (I > 8) Or (I = FCount - 1);
  Notify := nil;
  Try
    (Owner As TComponent).Name := 'Shape';
    (Owner as TComponent).Tag := $7F;
  Finally
    If I <= 8 Then Result := Abs(Result);
  End;
End;

End.
