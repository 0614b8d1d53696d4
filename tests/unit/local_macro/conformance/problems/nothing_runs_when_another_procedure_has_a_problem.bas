' A problem anywhere in the module keeps all of it from running.
'? 7:5 Label not defined: away
Sub main()
    Debug.Print "not printed"
End Sub
Sub Other()
    GoTo Away
End Sub
