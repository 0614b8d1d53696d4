' Blanks and tabs between words don't matter, nor do empty lines.
'> 3

Sub   main (  )

    Dim	a   As   Long


    a=1+2
    Debug . Print a  &  ""
End   Sub
