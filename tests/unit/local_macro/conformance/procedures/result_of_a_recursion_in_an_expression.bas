' A function may call itself several times in one expression.
'> 55
Function Fibonacci(n As Long) As Long
    If n < 2 Then
        Fibonacci = n
    Else
        Fibonacci = Fibonacci(n - 1) + Fibonacci(n - 2)
    End If
End Function

Sub main()
    Debug.Print Fibonacci(10) & ""
End Sub
