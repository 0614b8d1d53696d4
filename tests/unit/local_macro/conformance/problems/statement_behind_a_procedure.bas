' A statement behind a procedure belongs to none.
'? 5:1 Only comments may appear after End Sub, End Function, or End Property
Sub main()
End Sub
Debug.Print 1
