a.b a..b a:b a:=b a : = b a<b a<=b a<>b a< >b a>b a>=b a> =b a=b =< =>
+-*/ ()[] @^;,
(x) (.x.) :=: ::= <<>> ==
! " % & ? \ | ~ ` }
é ß → 𝄞
a	b		cde
     indented     

 
last line without a break