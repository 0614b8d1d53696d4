' A delimiter of letters is found in either case when told so.
'> 1 2
Sub main()
    Debug.Print UBound(Split("1x2X3", "x")) & " " & UBound(Split("1x2X3", "x", -1, vbTextCompare))
End Sub
