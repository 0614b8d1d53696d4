' A line number is a label; it needs no colon.
'> twenty
Sub main()
    GoTo 20
10  Debug.Print "ten"
20  Debug.Print "twenty"
End Sub
