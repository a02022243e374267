{}{ } [a][0] (b)(* c *)
a & b && c | d || e ^ f ~g !h
i = j == k === l != m
n < o <= p << q > r >= s >> t >>> u <> v
w + x ++ y - z -- a * b ** c / d % e \ f
a.b..c...d ?. e ? f : g; h, i
@ # ` '
	tabs		between
é ß € 漢 a漢b
formfeed  end
