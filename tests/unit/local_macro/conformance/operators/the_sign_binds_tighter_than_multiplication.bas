' The sign comes before * and behind ^.
'> -6 -6 -9 0.25
Sub main()
    Debug.Print -2 * 3 & " " & 2 * -3 & " " & -3 ^ 2 & " " & 2 ^ -2
End Sub
