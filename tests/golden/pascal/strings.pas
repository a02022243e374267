'' 'a' 'it''s' '''' '''''' 'a''' ''''b'
'not closed
'closed on the next line' 'not closed ''
'with { brace' '(* star *)' '// slashes'
'größe' '"double"' "double"
'back\slash'
'control  code' '	'
