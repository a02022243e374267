1 12 1.5 1,5 1,234.56 0.0 1.2.3 1,,2
(1) (12) (1,2) (1, 2) ,3 .4 x.5 12x 12-3 12; 1.5x 1'2' 1é
a1 1a -1 +1 =1 (-1) 12)3
'' 'a' 'it''s' 'a b' 'a"b' 'é漢' 'a''' x'1'
'not closed
'a	b' tab in a value
@a @b, (@c) @@rowcount @d=1 @e)@f a@b =@g ,@h .@i @
@last
a - b - -c --d
a / b /c * d
[name] "name" #temp $1 %x & ! ? : ; < = > ^ _ ` { | } ~
é漢
	tabs		between
1
12
@
'
formfeed  end
