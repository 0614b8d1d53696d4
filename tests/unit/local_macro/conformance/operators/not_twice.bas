' Signs and Not may be repeated.
'> True 5 -1
Sub main()
    Debug.Print (Not Not True) & " " & (- -5) & " " & (1 - - -2)
End Sub
