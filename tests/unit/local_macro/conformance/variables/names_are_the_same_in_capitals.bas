' Capitals and small letters make no difference in names and keywords.
'> 3
SUB MAIN()
    dim Total AS long
    TOTAL = 3
    debug.PRINT total & ""
end sub
