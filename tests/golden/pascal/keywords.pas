As AS as aS A
begin BEGIN Begin Constructor const CLASS do destructor
end ELSE except function finally if implementation interface inherited
out object procedure program private protected public published property
then try type unit uses until var
repeat while for record with asm nil not and or case of to downto
beginning _begin begin1 en d_o v var_ x
ThisIdentifierIsLongerThanTheTextThatALexerKeepsAtHandForOneTokenAndMustBeReadWholeAllTheSame_0123456789_0123456789_0123456789_0123456789_End
