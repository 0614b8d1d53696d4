' Tab without a number and a comma move to the next zone.
'> a             b
'>               c
Sub main()
    Debug.Print "a"; Tab; "b"
    Debug.Print , "c"
End Sub
