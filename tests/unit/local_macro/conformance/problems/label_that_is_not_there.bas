' A jump needs its label in the same procedure.
'? 4:5 Label not defined: there
Sub main()
    GoTo There
End Sub
