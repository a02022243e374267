{ Stock ledger: goods come in, goods go out, and a count tells what is left.

  The ledger keeps every movement, so that a stock can be asked for at any
  moment of the past. (* Nothing is ever removed from it. *) }
unit StockLedger;

interface

uses
  Classes, SysUtils, Contnrs;

type
  TMovementKind = (mkReceipt, mkIssue, mkCorrection);

  (* One movement of one article. The quantity of a receipt or an issue is
     never negative { its sign follows from the kind }; a correction carries
     the sign with it. // This is still the same comment. *)
  TMovement = class
  private
    FArticle: string;
    FKind: TMovementKind;
    FQuantity: Double;
    FMoment: TDateTime;
  public
    constructor Create(const AArticle: string; AKind: TMovementKind; AQuantity: Double);
    function Effect: Double;
    property Article: string read FArticle;
    property Moment: TDateTime read FMoment write FMoment;
  end;

  TMovementEvent = procedure(Sender: TObject; AMovement: TMovement) of object;

  TStockLedger = class(TComponent)
  private
    FMovements: TObjectList;
    FOnMovement: TMovementEvent;
    function GetMovement(Index: Integer): TMovement;
  protected
    procedure DoMovement(AMovement: TMovement); virtual;
  public
    constructor Create(AOwner: TComponent); override;
    destructor Destroy; override;
    procedure Receive(const AArticle: string; AQuantity: Double);
    procedure Issue(const AArticle: string; AQuantity: Double);
    function StockOf(const AArticle: string; AMoment: TDateTime): Double;
    function TryFind(const AArticle: string; out AMovement: TMovement): Boolean;
    property Movements[Index: Integer]: TMovement read GetMovement; default;
  published
    property OnMovement: TMovementEvent read FOnMovement write FOnMovement;
  end;

  EStockLedger = class(Exception);

const
  { Quantities that differ by less are the same. }
  Tolerance = 0.0005;
  MaxArticleLength = $40;

implementation

{ TMovement }

constructor TMovement.Create(const AArticle: string; AKind: TMovementKind; AQuantity: Double);
begin
  inherited Create;
  FArticle := AArticle;
  FKind := AKind;
  FQuantity := AQuantity;
  FMoment := Now;
end;

function TMovement.Effect: Double;
begin
  case FKind of
    mkReceipt: Result := FQuantity;
    mkIssue: Result := -FQuantity;
  else
    Result := FQuantity;  // corrections carry their own sign
  end;
end;

{ TStockLedger }

constructor TStockLedger.Create(AOwner: TComponent);
begin
  inherited Create(AOwner);
  FMovements := TObjectList.Create(True);
end;

destructor TStockLedger.Destroy;
begin
  FMovements.Free;
  inherited Destroy;
end;

function TStockLedger.GetMovement(Index: Integer): TMovement;
begin
  Result := FMovements[Index] As TMovement;
end;

procedure TStockLedger.DoMovement(AMovement: TMovement);
begin
  if Assigned(FOnMovement) then
    FOnMovement(Self, AMovement);
end;

procedure TStockLedger.Receive(const AArticle: string; AQuantity: Double);
var
  Movement: TMovement;
begin
  if Length(AArticle) > MaxArticleLength then
    raise EStockLedger.CreateFmt('The name "%s" is too long.', [AArticle]);
  Movement := TMovement.Create(AArticle, mkReceipt, AQuantity);
  FMovements.Add(Movement);
  DoMovement(Movement);
end;

procedure TStockLedger.Issue(const AArticle: string; AQuantity: Double);
var
  Left: Double;
begin
  Left := StockOf(AArticle, Now) - AQuantity;
  if Left < -Tolerance then
    raise EStockLedger.Create('There isn''t enough of ' + AArticle + ':'#13#10 +
      FloatToStr(-Left) + ' missing.');
  FMovements.Add(TMovement.Create(AArticle, mkIssue, AQuantity));
  DoMovement(Movements[FMovements.Count - 1]);
end;

{ The sum is taken from the start each time: a ledger of a shop has some
  thousand movements a year, and nobody asks more often than once a minute.

    { an opening brace in here opens nothing: the first closing one ends it }

function TStockLedger.StockOf(const AArticle: string; AMoment: TDateTime): Double;
var
  I: Integer;
begin
  Result := 0;
  for I := 0 to FMovements.Count - 1 do
    with Movements[I] do
      if (Article = AArticle) and (Moment <= AMoment) then
        Result := Result + Effect;
end;

function TStockLedger.TryFind(const AArticle: string; out AMovement: TMovement): Boolean;
var
  I: Integer;
begin
  I := FMovements.Count;
  repeat
    Dec(I);
  until (I < 0) or (Movements[I].Article = AArticle);
  Result := I >= 0;
  if Result then
    AMovement := Movements[I]
  else
    AMovement := nil;
end;

{$IFDEF SELFTEST}
procedure SelfTest;
var
  Ledger: TStockLedger;
begin
  Ledger := TStockLedger.Create(nil);
  try
    Ledger.Receive('Bolt M8x40', 250);
    Ledger.Issue('Bolt M8x40', 12.5);
    try
      Ledger.Issue('Nut M8', 1);
    except
      on E: EStockLedger do
        WriteLn(E.Message);
    end;
  finally
    Ledger.Free;
  end;
end;
{$ENDIF}

end.
