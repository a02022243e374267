-- a comment
--
select 1 -- after it
---- four
--a	b tab ends it
/* one line */ select
/**/select /***/ /*/ /* a * b / c */
/* two
lines */ as
/* with

an empty line */ as
/*
x
*/
/* a star *
* and more *
**/ as
/*
*/as
/*
/
y */
'/* no */' "--" - - / *
/* open
to the end
