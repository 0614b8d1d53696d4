' A line number alone behind Then or Else is a jump there.
'> thirty
'> ten
Sub main()
    If 1 = 2 Then 10 Else 30
10  Debug.Print "ten"
    Exit Sub
30  Debug.Print "thirty"
    If 1 = 1 Then 10
    Debug.Print "not here"
End Sub
