a & b ' concatenation
(a)(b)()
(a * b) + c - d / e \ f
a, b; c: d
a < b <= c <> d > e >= f = g
< = > = <  > << >> ==
[a][]
a.b..c...d
! # % ? @ ^ ` { } ~ |
"&" &
	tabs		between
é ß € 漢 a漢b
formfeed  end
