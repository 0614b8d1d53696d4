' A call of a name that nobody defines is told with the name.
'? 4:5 Sub or Function not defined: DoIt
Sub main()
    DoIt 5
End Sub
