' There is no type Decimal here: CDec says so before anything runs.
'? 4:9 CDec is not supported by this macro language
Sub main()
    x = CDec(1)
End Sub
