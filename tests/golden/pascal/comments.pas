x := 1; // to the end of the line { not a brace comment
y := 2; { one line } z := 3;
{ two
  lines } a := 4;
(* star * and ) alone *) b := 5;
(* two (* not nested
   lines *) c := 6; (**) d := 7; {} e := 8;
(*) still open *) f := 9;
{ a // in here
  and (* here

  // and an empty line above } g := 10;
(*
*)
//
/ not / a // comment { open
end
(* the text ends in here
