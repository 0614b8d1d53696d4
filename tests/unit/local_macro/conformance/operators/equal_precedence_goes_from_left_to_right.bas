' Operators of one rank are taken from the left, ^ as well.
'> 64
'> 2
'> 5
'> 1
Sub main()
    Debug.Print "" & 2 ^ 3 ^ 2
    Debug.Print "" & 8 / 2 / 2
    Debug.Print "" & 10 - 3 - 2
    Debug.Print "" & 100 \ 10 \ 7
End Sub
